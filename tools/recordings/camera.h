// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

#include <random>

/// A camera: its pictures are as bright as the light is, and its sensor adds noise.
///
/// The same pictures in the same order give the same noise.
class Camera {
public:
    /// What it makes of `scene` (QImage::Format_RGB32).
    QImage picture(QImage scene, double light);

private:
    std::mt19937 chance;
};
