// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codedpictures.h"
#include "h264sets.h"

#include <map>

/// What the first slice of each packet of H.264 says of its picture: its type, whether others refer
/// to it, and its quantiser.
class H264Slices : public CodedPictureReader {
public:
    explicit H264Slices(const PacketBytes& header);

    CodedPicture of(const PacketBytes& packet, bool isKey) override;

private:
    void takeSet(const PacketBytes& unit);
    CodedPicture slice(const PacketBytes& unit) const;

    int lengthBytes; ///< of a unit's length
    std::map<int, H264Sequence> sequences;
    std::map<int, H264Picture> pictures;
};
