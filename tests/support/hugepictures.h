// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Small files with huge pictures.
namespace media {

/// A GIF of a few KB in which a dot moves.
bool writeGif(const QString& fileName, int width, int height, int pictures);

/// Rewrites a recording of PNG pictures so that the header of picture `number` (from 0) claims this
/// size.
bool changePngSize(const QString& fileName, int number, int width, int height);

} // namespace media
