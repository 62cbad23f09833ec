// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "framebudget.h"
#include "libavpointers.h"

#include <QString>

/// Closes a decoder; holds `ffmpegMutex` for that.
struct CodecContextDeleter {
    void operator()(AVCodecContext* context) const;
};

using CodecContextPointer = std::unique_ptr<AVCodecContext, CodecContextDeleter>;

/// A decoder for one stream, or why there is none.
struct OpenedCodec {
    CodecContextPointer context; ///< null after a failure
    bool hasFrameThreads = false;
    QString error; ///< for a person; empty after a success
};

/// Opens a decoder for `parameters` that uses up to `threads` threads (1 or more), or, where they
/// cannot be had, one. Its pictures are counted by `memory`, which must outlive it; fails where
/// they are known to be too large. Holds `ffmpegMutex` for moments.
OpenedCodec openCodec(const AVCodecParameters& parameters, int threads, FrameBudget& memory);

/// Pictures per second as the decoder has read in the stream's headers; 0 if it has not, or not
/// yet.
double frameRateOf(const AVCodecContext& context);
