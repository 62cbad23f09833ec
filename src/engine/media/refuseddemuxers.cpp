// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "refuseddemuxers.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/avstring.h>
}

#include <algorithm>
#include <array>

namespace {

struct Refusal {
    const char* demuxer;
    const char* reason;
};

constexpr const char* playlist = "a playlist, not a recording";
constexpr const char* address = "the address of a stream, not a recording";
constexpr const char* script = "a script, not a recording";
constexpr const char* text = "text, not a recording";

constexpr std::array refusals = {
    Refusal{"hls", playlist},
    Refusal{"dash", playlist},
    Refusal{"webm_dash_manifest", playlist},
    Refusal{"imf", playlist},
    Refusal{"concat", playlist},
    Refusal{"vobsub", "the index of another file, not a recording"},
    Refusal{"sdp", address},
    Refusal{"rtsp", address},
    Refusal{"rtp", address},
    Refusal{"sap", address},
    Refusal{"avisynth", script},
    Refusal{"vapoursynth", script},
    Refusal{"tty", text},
    Refusal{"bin", text},
    Refusal{"xbin", text},
    Refusal{"adf", text},
    Refusal{"idf", text},
};

} // namespace

QString refusalOf(const AVInputFormat& demuxer) {
    const auto* const refusal =
        std::find_if(refusals.begin(), refusals.end(), [&demuxer](const Refusal& candidate) {
            return av_match_name(candidate.demuxer, demuxer.name) != 0;
        });
    return refusal == refusals.end() ? QString() : QString::fromLatin1(refusal->reason);
}
