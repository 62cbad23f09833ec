// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codeccontext.h"
#include "picturepacing.h"
#include "stretch.h"

/// Gives a decoder that begins in the middle of a stream what only the stream's first packet tells,
/// such as which encoder's mistakes to make up for.
void prime(AVCodecContext& context, const AVPacket& firstPacket);

/// A decoder on one thread that decodes stretches, each as if it were all there is, and compares
/// their pictures.
///
/// One that has never stopped gives the same where every packet does what is expected of it. At the
/// first sign of anything else the stretch is left, in doubt.
class StretchDecoder {
public:
    /// `context`: for one thread, newly opened, or null: one is opened then. `isInterrupted` is
    /// asked once per packet, and a stretch is left once it answers true. `keeper` may be null.
    StretchDecoder(std::shared_ptr<StretchStream> stream, CodecContextPointer context,
                   PictureComparison compare, std::unique_ptr<PictureKeeper> keeper,
                   std::function<bool()> isInterrupted);
    ~StretchDecoder();
    StretchDecoder(const StretchDecoder&) = delete;
    StretchDecoder& operator=(const StretchDecoder&) = delete;

    /// Fills in what decoding the stretch gives.
    void decode(Stretch& stretch);

    /// Gives `take` the pictures of a stretch that was decoded before, in order, with their places
    /// in it, for as long as it answers true.
    void decodeAgain(const Stretch& stretch,
                     const std::function<bool(int place, FramePointer frame)>& take);

private:
    bool open();
    bool prepare(const Stretch& stretch);
    void feedAll(Stretch& stretch);
    bool feed(Stretch& stretch, const AVPacket* packet, int place, PicturePacing& pacing);
    bool take(Stretch& stretch, PicturePointer picture, int place);
    void keepFirst(Stretch& stretch, const DecodedFrame& record);
    bool isDamaged(const AVFrame& picture) const;

    std::shared_ptr<StretchStream> stream;
    CodecContextPointer context;
    PictureComparison compare;
    std::unique_ptr<PictureKeeper> keeper;
    std::function<bool()> isInterrupted;
    bool isNew = true; ///< nothing has been decoded
};
