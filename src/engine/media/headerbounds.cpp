// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "headerbounds.h"

#include "nalunits.h"

extern "C" {
#include <libavformat/avformat.h>
}

namespace {

bool isTooMany(const AVCodecParameters& codec) {
    const PacketBytes header(codec.extradata, codec.extradata_size);
    if (codec.codec_id == AV_CODEC_ID_H264)
        return h264Header(header).isCut;
    return codec.codec_id == AV_CODEC_ID_HEVC && hevcHeader(header).isCut;
}

} // namespace

bool hasTooManyUnits(const AVFormatContext& format) {
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        if (isTooMany(*format.streams[i]->codecpar))
            return true;
    }
    return false;
}
