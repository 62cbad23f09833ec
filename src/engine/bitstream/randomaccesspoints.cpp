// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "randomaccesspoints.h"

#include "av1accesspoints.h"
#include "jpegaccesspoints.h"
#include "keyframetests.h"
#include "mpegaccesspoints.h"
#include "nalaccesspoints.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace {

class EveryPacket : public CodecAccessPoints {
public:
    PacketKind kindOf(const PacketBytes& /*packet*/, bool /*isKey*/) override {
        return {PacketKind::Access::ClosedGop, false, false};
    }
};

std::unique_ptr<CodecAccessPoints> accessPointsFor(AVCodecID codec, const PacketBytes& header) {
    switch (codec) {
    case AV_CODEC_ID_H264:
        return h264AccessPoints(header);
    case AV_CODEC_ID_HEVC:
        return hevcAccessPoints(header);
    case AV_CODEC_ID_MPEG1VIDEO:
    case AV_CODEC_ID_MPEG2VIDEO:
        return mpeg12AccessPoints();
    case AV_CODEC_ID_MPEG4:
        return mpeg4AccessPoints(header);
    case AV_CODEC_ID_AV1:
        return av1AccessPoints();
    case AV_CODEC_ID_MJPEG:
        return jpegAccessPoints();
    case AV_CODEC_ID_VP8:
        return keyAccessPoints(isVp8Key);
    case AV_CODEC_ID_VP9:
        return keyAccessPoints(isVp9Key);
    case AV_CODEC_ID_FLV1:
        return keyAccessPoints(isFlv1Key);
    case AV_CODEC_ID_H263:
        return keyAccessPoints(isH263Key);
    case AV_CODEC_ID_MSMPEG4V1:
        return keyAccessPoints(isMsMpeg4v1Key);
    case AV_CODEC_ID_MSMPEG4V2:
    case AV_CODEC_ID_MSMPEG4V3:
    case AV_CODEC_ID_WMV1:
        return keyAccessPoints(isMsMpeg4Key);
    case AV_CODEC_ID_WMV2:
        return keyAccessPoints(isWmv2Key);
    case AV_CODEC_ID_FFV1:
        return keyAccessPoints(isFfv1Key);
    // Others that are said to stand alone repeat what came before, or draw over it.
    case AV_CODEC_ID_RAWVIDEO:
    case AV_CODEC_ID_HUFFYUV:
    case AV_CODEC_ID_FFVHUFF:
    case AV_CODEC_ID_UTVIDEO:
    case AV_CODEC_ID_MAGICYUV:
    case AV_CODEC_ID_PRORES:
    case AV_CODEC_ID_DNXHD:
    case AV_CODEC_ID_DVVIDEO:
    case AV_CODEC_ID_JPEG2000:
    case AV_CODEC_ID_V210:
        return std::make_unique<EveryPacket>();
    default:
        return nullptr;
    }
}

bool hasSideData(const AVPacket& packet, AVPacketSideDataType type) {
    return av_packet_get_side_data(&packet, type, nullptr) != nullptr;
}

bool changesDecoder(const AVPacket& packet) {
    return hasSideData(packet, AV_PKT_DATA_NEW_EXTRADATA) ||
           hasSideData(packet, AV_PKT_DATA_PARAM_CHANGE) ||
           hasSideData(packet, AV_PKT_DATA_PALETTE);
}

} // namespace

RandomAccessPoints::RandomAccessPoints(const AVCodecParameters& parameters)
    : accessPoints(accessPointsFor(parameters.codec_id,
                                   PacketBytes(parameters.extradata, parameters.extradata_size))) {}

RandomAccessPoints::~RandomAccessPoints() = default;
RandomAccessPoints::RandomAccessPoints(RandomAccessPoints&& other) noexcept = default;
RandomAccessPoints& RandomAccessPoints::operator=(RandomAccessPoints&& other) noexcept = default;

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
