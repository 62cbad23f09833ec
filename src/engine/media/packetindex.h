// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <cstdint>
#include <deque>
#include <memory>

/// A packet of the chosen stream as it was read from the file's start.
struct IndexedPacket {
    std::int64_t position = -1; ///< in the file, in bytes; -1: the demuxer does not say
    std::int64_t dts = 0;       ///< decoding time stamp in the stream's time base, as it was read
    int bytes = 0;
};

/// All of them, the packet's number being its place. There may be millions: what grows takes no
/// more than it needs.
using PacketIndex = std::deque<IndexedPacket>;
using PacketIndexPointer = std::shared_ptr<const PacketIndex>;
