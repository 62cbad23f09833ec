// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "streamborders.h"

#include "av1borders.h"
#include "jpegborders.h"
#include "keypictures.h"
#include "mpegborders.h"
#include "nalborders.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace {

class EveryPacket : public CodecBorders {
public:
    PacketKind kindOf(const PacketBytes& /*packet*/, bool /*isKey*/) override {
        return {PacketKind::Border::Closed, false, false};
    }
};

std::unique_ptr<CodecBorders> borderFinder(AVCodecID codec, const PacketBytes& header) {
    switch (codec) {
    case AV_CODEC_ID_H264:
        return h264Borders(header);
    case AV_CODEC_ID_HEVC:
        return hevcBorders(header);
    case AV_CODEC_ID_MPEG1VIDEO:
    case AV_CODEC_ID_MPEG2VIDEO:
        return mpeg12Borders();
    case AV_CODEC_ID_MPEG4:
        return mpeg4Borders(header);
    case AV_CODEC_ID_AV1:
        return av1Borders();
    case AV_CODEC_ID_MJPEG:
        return jpegBorders();
    case AV_CODEC_ID_VP8:
        return keyBorders(isVp8Key);
    case AV_CODEC_ID_VP9:
        return keyBorders(isVp9Key);
    case AV_CODEC_ID_FLV1:
        return keyBorders(isFlv1Key);
    case AV_CODEC_ID_H263:
        return keyBorders(isH263Key);
    case AV_CODEC_ID_MSMPEG4V1:
        return keyBorders(isMsMpeg4v1Key);
    case AV_CODEC_ID_MSMPEG4V2:
    case AV_CODEC_ID_MSMPEG4V3:
    case AV_CODEC_ID_WMV1:
        return keyBorders(isMsMpeg4Key);
    case AV_CODEC_ID_WMV2:
        return keyBorders(isWmv2Key);
    case AV_CODEC_ID_FFV1:
        return keyBorders(isFfv1Key);
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

StreamBorders::StreamBorders(const AVCodecParameters& parameters)
    : borders(borderFinder(parameters.codec_id,
                           PacketBytes(parameters.extradata, parameters.extradata_size))) {}

StreamBorders::~StreamBorders() = default;
StreamBorders::StreamBorders(StreamBorders&& other) noexcept = default;
StreamBorders& StreamBorders::operator=(StreamBorders&& other) noexcept = default;

PacketKind StreamBorders::next(const AVPacket& packet) {
    PacketKind kind;
    if (borders)
        kind = borders->kindOf(PacketBytes(packet.data, packet.size),
                               (packet.flags & AV_PKT_FLAG_KEY) != 0);
    const bool isDamaged = (packet.flags & AV_PKT_FLAG_CORRUPT) != 0;
    kind.isSuspect = kind.isSuspect || isDamaged || (count > 0 && changesDecoder(packet));
    if (kind.isSuspect)
        kind.border = PacketKind::Border::None;
    kind.isLeading = kind.isLeading && isBehindOpen;
    isBehindOpen = kind.border == PacketKind::Border::Open || kind.isLeading;
    ++count;
    return kind;
}
