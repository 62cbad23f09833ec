// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codectable.h"

#include <algorithm>

namespace {

class EveryPacket : public CodecAccessPoints {
public:
    PacketKind kindOf(const PacketBytes& /*packet*/, bool /*isKey*/) override {
        return {PacketKind::Access::ClosedGop, false, false};
    }
};

/// Of codecs whose pictures never need another one.
std::unique_ptr<CodecAccessPoints> everyPacket(const PacketBytes& /*header*/) {
    return std::make_unique<EveryPacket>();
}

} // namespace

// Frame threads: interlaced streams do not give the same frames (MPEG-4 Part 2 at any count, H.264
// where a field lacks its pair), nor do damaged ones: see FrameThreadedDecoder for how these are
// kept exact. Slices: MPEG-1 and MPEG-2 are faster so than in chunks; AV1's decoder threads by
// itself, told to have no delay, inside a picture. One thread: the decoders of MJPEG and raw video
// have no others.
//
// Which packets of FFV1 stand alone nobody here can tell. No camera records it any more, nor H.263
// and the codecs made after it for the web, which are not here: one thread decodes them. Nor are
// codecs that are said to stand alone, but repeat what came before or draw over it.
const std::vector<CodecTraits>& codecTable() {
    using Threads = DecoderThreading;
    using Gain = ChunkGain;
    static const std::vector<CodecTraits> table = {
        {AV_CODEC_ID_H264, Threads::Frame, Gain::Ordinary, h264AccessPoints},
        {AV_CODEC_ID_HEVC, Threads::Frame, Gain::Ordinary, hevcAccessPoints},
        {AV_CODEC_ID_MPEG4, Threads::Frame, Gain::Ordinary, mpeg4AccessPoints},
        {AV_CODEC_ID_VP8, Threads::Frame, Gain::Ordinary, vp8AccessPoints},
        {AV_CODEC_ID_VP9, Threads::Frame, Gain::Ordinary, vp9AccessPoints},
        {AV_CODEC_ID_AV1, Threads::Slice, Gain::Single, av1AccessPoints},
        {AV_CODEC_ID_MPEG1VIDEO, Threads::Slice, Gain::None, mpeg12AccessPoints},
        {AV_CODEC_ID_MPEG2VIDEO, Threads::Slice, Gain::None, mpeg12AccessPoints},
        {AV_CODEC_ID_FFV1, Threads::Slice, Gain::None, nullptr},
        {AV_CODEC_ID_MJPEG, Threads::One, Gain::Intra, jpegAccessPoints},
        {AV_CODEC_ID_HUFFYUV, Threads::One, Gain::Intra, everyPacket},
        {AV_CODEC_ID_FFVHUFF, Threads::One, Gain::Intra, everyPacket},
        {AV_CODEC_ID_UTVIDEO, Threads::One, Gain::Intra, everyPacket},
        {AV_CODEC_ID_MAGICYUV, Threads::One, Gain::Intra, everyPacket},
        {AV_CODEC_ID_PRORES, Threads::One, Gain::Intra, everyPacket},
        {AV_CODEC_ID_DNXHD, Threads::One, Gain::Intra, everyPacket},
        {AV_CODEC_ID_DVVIDEO, Threads::One, Gain::Intra, everyPacket},
        {AV_CODEC_ID_JPEG2000, Threads::One, Gain::Intra, everyPacket},
        {AV_CODEC_ID_RAWVIDEO, Threads::One, Gain::None, everyPacket},
        {AV_CODEC_ID_V210, Threads::One, Gain::None, everyPacket},
    };
    return table;
}

CodecTraits traitsOf(AVCodecID codec) {
    const std::vector<CodecTraits>& table = codecTable();
    const auto found = std::find_if(table.begin(), table.end(), [codec](const CodecTraits& traits) {
        return traits.codec == codec;
    });
    return found == table.end() ? CodecTraits{codec} : *found;
}
