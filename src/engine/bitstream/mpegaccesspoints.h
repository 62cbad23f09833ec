// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codecaccesspoints.h"

#include <memory>

/// For MPEG-1 and MPEG-2: pictures that stand alone behind a sequence header, closed if their group
/// is.
std::unique_ptr<CodecAccessPoints> mpeg12AccessPoints();

/// For MPEG-4 Part 2. Every picture that stands alone is an open GOP: how long the pictures
/// shown before it last is counted from the picture before, closed group or not. `header` is the
/// stream's extradata.
std::unique_ptr<CodecAccessPoints> mpeg4AccessPoints(const PacketBytes& header);
