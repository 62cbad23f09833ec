// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <QtGlobal>

#include <memory>

struct PacketDeleter {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

struct AVFrameDeleter {
    void operator()(AVFrame* picture) const { av_frame_free(&picture); }
};

struct ParametersDeleter {
    void operator()(AVCodecParameters* parameters) const { avcodec_parameters_free(&parameters); }
};

using PacketPointer = std::unique_ptr<AVPacket, PacketDeleter>;
using AVFramePointer = std::unique_ptr<AVFrame, AVFrameDeleter>;
using ParametersPointer = std::unique_ptr<AVCodecParameters, ParametersDeleter>;

/// A packet of the chosen stream and its place in it, counted from 0.
struct NumberedPacket {
    qint64 number = 0;
    PacketPointer packet; ///< never empty
};
