// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"

#include <vector>

/// Gives `take` the NAL units of a packet of H.264 or HEVC, none of them empty, without zeros at
/// their ends, which are none of theirs (B.1.1, trailing_zero_8bits), until it answers false.
///
/// `lengthBytes`: how many bytes tell a unit's length, 1 to 4 (ISO/IEC 14496-15); 0: start code
/// prefixes divide units (ITU-T H.264 and H.265, Annex B).
void forEachNalUnit(const PacketBytes& packet, int lengthBytes, const PacketBytes::PartTaker& take);

/// What the extradata of a stream tells: a decoder configuration record (ISO/IEC 14496-15, 5.3.3.1
/// and 8.3.3.1), or units that start code prefixes divide.
struct NalHeader {
    int lengthBytes = 0;            ///< as for `forEachNalUnit`
    std::vector<PacketBytes> units; ///< `mostHeaderUnits` at most
    bool isCut = false;             ///< there are more
};

/// Far more than all the sets that a stream can have.
constexpr std::size_t mostHeaderUnits = 65536;

NalHeader h264Header(const PacketBytes& header);
NalHeader hevcHeader(const PacketBytes& header);
