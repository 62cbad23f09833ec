// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"

/// One of the units that a packet of AV1 is made of (AV1 bitstream specification, 5.3).
struct Av1Unit {
    enum Type { SequenceHeader = 1, FrameHeader = 3, Frame = 6 }; // 6.2.2

    int type = 0; ///< any number can be
    PacketBytes payload;
    std::int64_t end = 0; ///< in the packet, behind where it begins
};

/// The unit that begins at `begin`; the last one where it does not fit.
Av1Unit av1UnitAt(const PacketBytes& packet, std::int64_t begin);

/// Whether a frame begins with it.
inline bool isFrame(const Av1Unit& unit) {
    return unit.type == Av1Unit::Frame || unit.type == Av1Unit::FrameHeader;
}
