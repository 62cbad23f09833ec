// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codedpictures.h"

#include "av1units.h"
#include "h264slices.h"
#include "nalunits.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>

namespace {

class ByKeyFlag : public CodedPictureReader {
public:
    CodedPicture of(const PacketBytes& /*packet*/, bool isKey) override {
        return {isKey ? 1 : 0, std::nullopt};
    }
};

/// ITU-T H.265, 7.4.2.2, Table 7-1: types below 32 are slices.
class HevcPictures : public CodedPictureReader {
public:
    explicit HevcPictures(const PacketBytes& header)
        : lengthBytes(hevcHeader(header).lengthBytes) {}

    CodedPicture of(const PacketBytes& packet, bool /*isKey*/) override {
        constexpr int firstOther = 32;
        CodedPicture found;
        forEachNalUnit(packet, lengthBytes, [&found](const PacketBytes& unit) {
            const int type = unit.bits(1, 6);
            const bool isSlice = type < firstOther && unit.bits(7, 6) == 0; // of the base layer
            if (isSlice)
                found.kind = 1 + type;
            return !isSlice;
        });
        return found;
    }

private:
    int lengthBytes;
};

/// show_existing_frame and frame_type (AV1 bitstream specification, 5.9.2) of the packet's last
/// frame, which is the one that is shown, and how many there are.
class Av1Pictures : public CodedPictureReader {
public:
    CodedPicture of(const PacketBytes& packet, bool /*isKey*/) override {
        constexpr int mostFrames = 6;
        int frames = 0;
        int type = 0;
        for (std::int64_t at = 0; at < packet.size();) {
            const Av1Unit unit = av1UnitAt(packet, at);
            if (isFrame(unit)) {
                ++frames;
                type = unit.payload.bits(0, 3);
            }
            at = unit.end;
        }
        return {1 + std::min(frames, mostFrames) * 8 + type, std::nullopt};
    }
};

std::unique_ptr<CodedPictureReader> readerFor(AVCodecID codec, const PacketBytes& header) {
    switch (codec) {
    case AV_CODEC_ID_H264:
        return std::make_unique<H264Slices>(header);
    case AV_CODEC_ID_HEVC:
        return std::make_unique<HevcPictures>(header);
    case AV_CODEC_ID_AV1:
        return std::make_unique<Av1Pictures>();
    default:
        return std::make_unique<ByKeyFlag>();
    }
}

} // namespace

CodedPictures::CodedPictures(const AVCodecParameters& parameters)
    : reader(readerFor(parameters.codec_id,
                       PacketBytes(parameters.extradata, parameters.extradata_size))) {}

CodedPicture CodedPictures::of(const AVPacket& packet) {
    return reader->of(PacketBytes(packet.data, packet.size), (packet.flags & AV_PKT_FLAG_KEY) != 0);
}
