// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"

#include <vector>

/// Takes the units out of the packets of H.264 and HEVC.
class NalUnits {
public:
    /// `lengthBytes`: how many bytes tell a unit's length, 1 to 4; 0: prefixes divide units.
    explicit NalUnits(int lengthBytes)
        : lengthBytes(lengthBytes) {}

    /// In their order, none of them empty, without zeros at their ends.
    std::vector<PacketBytes> of(const PacketBytes& packet) const;

private:
    int lengthBytes;
};

/// What the extradata of a stream tells.
struct NalHeader {
    int lengthBytes = 0; ///< as for `NalUnits`
    std::vector<PacketBytes> units;
};

NalHeader h264Header(const PacketBytes& header);
NalHeader hevcHeader(const PacketBytes& header);
