// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

/// Seconds between the first key frames of the file at `fileName`, as the container tells of them,
/// the most of three; as long as was looked, some minutes at most, where there are no more. 0 where
/// that cannot be told. `isInterrupted` is as for `MediaFile`.
double keyFrameGap(const QString& fileName, const std::function<bool()>& isInterrupted);
