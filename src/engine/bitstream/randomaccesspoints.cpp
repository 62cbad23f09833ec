// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "randomaccesspoints.h"

#include "codectable.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace {

bool hasSideData(const AVPacket& packet, AVPacketSideDataType type) {
    return av_packet_get_side_data(&packet, type, nullptr) != nullptr;
}

bool changesDecoder(const AVPacket& packet) {
    return hasSideData(packet, AV_PKT_DATA_NEW_EXTRADATA) ||
           hasSideData(packet, AV_PKT_DATA_PARAM_CHANGE) ||
           hasSideData(packet, AV_PKT_DATA_PALETTE);
}

} // namespace

RandomAccessPoints::RandomAccessPoints(const AVCodecParameters& parameters) {
    if (const AccessPointsMaker make = traitsOf(parameters.codec_id).accessPoints)
        accessPoints = make(PacketBytes(parameters.extradata, parameters.extradata_size));
}

RandomAccessPoints::~RandomAccessPoints() = default;

PacketKind RandomAccessPoints::next(const AVPacket& packet) {
    PacketKind kind;
    if (accessPoints)
        kind = accessPoints->kindOf(PacketBytes(packet.data, packet.size),
                                    (packet.flags & AV_PKT_FLAG_KEY) != 0);
    const bool isDamaged = (packet.flags & AV_PKT_FLAG_CORRUPT) != 0;
    kind.isDiscontinuity =
        kind.isDiscontinuity || isDamaged || (count > 0 && changesDecoder(packet));
    if (kind.isDiscontinuity)
        kind.access = PacketKind::Access::None;
    kind.isLeading = kind.isLeading && isBehindOpen;
    isBehindOpen = kind.access == PacketKind::Access::OpenGop || kind.isLeading;
    ++count;
    return kind;
}
