// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codecborders.h"

#include <memory>

/// For H.264, whose borders are instantaneous refreshes; recovery points are none. `header` is the
/// stream's extradata.
std::unique_ptr<CodecBorders> h264Borders(const PacketBytes& header);

/// For HEVC: instantaneous refreshes that show what lies before them are closed borders, clean
/// random access is an open one.
std::unique_ptr<CodecBorders> hevcBorders(const PacketBytes& header);
