// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetreader.h"

#include <deque>

/// The most bytes of packets that are kept while reading on: some minutes of a camera's stream.
constexpr qint64 mostSkippedBytes = 256 * 1024 * 1024;

/// Reads on without decoding, up to the first packet at or behind `dts`. Answers the packets that a
/// decoder begins with so that what comes out from that one on is what comes out from the start:
/// from the second last key frame on, or the start of the file where nothing was read before.
///
/// Empty where that is not certain: packets without times or with times that fall, key frames too
/// far apart, or no packet at all that late.
std::deque<NumberedPacket> skipTo(PacketReader& reader, std::int64_t dts);

/// Seeks to a key frame before `dts`, and answers it; reading goes on behind it. It is the one
/// before the last, where there is one: pictures between two key frames may need what lies before
/// the first. Nothing where the container cannot tell.
std::optional<NumberedPacket> seekBefore(PacketReader& reader, std::int64_t dts);
