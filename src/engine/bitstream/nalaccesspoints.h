// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codecaccesspoints.h"

#include <memory>

/// For H.264, whose access points are instantaneous refreshes; recovery points are none. `header`
/// is the stream's extradata.
std::unique_ptr<CodecAccessPoints> h264AccessPoints(const PacketBytes& header);

/// For HEVC: instantaneous refreshes that show what lies before them are closed GOPs, clean
/// random access is an open one.
std::unique_ptr<CodecAccessPoints> hevcAccessPoints(const PacketBytes& header);
