// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"

#include <QImage>

/// The small picture that accompanies a clip: 320 pixels wide, (height * 320) / width high
/// (truncated), `QImage::Format_RGB32`.
///
/// The image is null if that height is 0, if it is higher than any picture can be painted, or if
/// the frame's pixel format cannot be scaled.
QImage snapshotImage(const DecodedFrame& record);
