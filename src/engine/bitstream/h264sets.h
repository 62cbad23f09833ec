// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"

#include <cstdint>
#include <optional>
#include <vector>

/// The bytes of a NAL unit without those that keep start codes out of it (ITU-T H.264, 7.3.1), the
/// first `most` of them.
std::vector<std::uint8_t> unescaped(const PacketBytes& unit, std::size_t most);

/// What of a sequence parameter set (ITU-T H.264, 7.3.2.1.1) tells how slice headers are read.
struct H264Sequence {
    int id = 0;
    bool areColoursSeparate = false;
    bool isGrey = false; ///< no chroma samples are coded with the others
    int frameNumberBits = 4;
    int orderType = 0; ///< pic_order_cnt_type
    int orderBits = 4;
    bool isOrderAlwaysZero = false;
    bool areFramesAlone = true; ///< no fields
};

/// The same of a picture parameter set (7.3.2.2).
struct H264Picture {
    int id = 0;
    int sequence = 0; ///< the number of that set
    bool isArithmetic = false;
    bool hasOrderOfBottom = false;
    int references[2] = {1, 1}; ///< of each list, where a slice does not say otherwise
    bool isWeighted = false;
    int weightingOfBoth = 0; ///< weighted_bipred_idc
    int quantiser = 26;
    bool hasRedundant = false;
};

/// Nothing where the unit is no such set, or one that no camera writes (slice groups).
std::optional<H264Sequence> readH264Sequence(const PacketBytes& unit);
std::optional<H264Picture> readH264Picture(const PacketBytes& unit);
