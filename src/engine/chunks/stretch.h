// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"
#include "libavpointers.h"
#include "picturecomparison.h"
#include "picturekeeper.h"
#include "picturememory.h"

#include <atomic>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

/// What all stretches of one recording share.
struct StretchStream {
    StretchStream(const AVCodecParameters& parameters, PictureMemory& memory);

    ParametersPointer parameters;     ///< null without memory
    PacketPointer firstPacket;        ///< of the stream; set before the first stretch is decoded
    PictureMemory& memory;            ///< outlives the stream
    std::atomic<qint64> keptBytes{0}; ///< of all stretches that were let go and are there
};

/// A picture of a stretch, once it has been compared and let go.
struct StretchResult {
    int fed = -1; ///< place of the packet it came with among those decoded; -1: of none
    std::optional<float> value; ///< compared with the picture before it in the stretch
};

/// The packets from one border of a recording to a later one, and what a decoder makes of them that
/// has them alone.
struct Stretch {
    explicit Stretch(std::shared_ptr<StretchStream> stream)
        : stream(std::move(stream)) {}
    ~Stretch();
    Stretch(const Stretch&) = delete;
    Stretch& operator=(const Stretch&) = delete;

    void add(NumberedPacket packet);

    /// Nothing but its pictures needs it any more, of which the first `handedOut` are handed out.
    /// Whoever holds one keeps its packets alive.
    void letGo(int handedOut);

    /// Those that a decoder takes which begins here, in order: its own but for the leading ones,
    /// then the tail.
    std::vector<const AVPacket*> decodedPackets() const;

    /// How many pictures are the stretch's own, if each packet gives one.
    int expectedPictures() const;

    /// The number of its first picture in the recording, if each packet gives one.
    qint64 firstPicture() const;

    std::shared_ptr<StretchStream> stream;
    qint64 index = 0; ///< among the stretches of the recording
    std::deque<NumberedPacket> packets;
    int leading = 0; ///< packets behind the first one that are decoded with the stretch before
    std::vector<PacketPointer> tail; ///< the next stretch's first packet and its leading ones
    qint64 bytes = 0;                ///< of `packets`
    bool isLast = false;             ///< the stream ends with it

    // What decoding it gives.
    bool isInDoubt = false; ///< one decoder that never stopped may give something else
    bool isDamaged = false; ///< a reason for doubt that several threads would stumble over, too
    int delay = 0;          ///< pictures that the decoder holds back to put them in order
    double headerFrameRate = 0.0; ///< as `frameRateOf` says at its first picture
    int width = 0;                ///< pixels, of all its pictures
    int height = 0;
    std::vector<StretchResult> results;
    FramePointer first; ///< its first picture, and its last one; null if there is none
    std::shared_ptr<const DecodedFrame> last;
    KeptPictures kept;

private:
    bool isLetGo = false;
};

/// Whether two pictures have one size and format.
bool areAlike(const AVFrame& a, const AVFrame& b);

using StretchPointer = std::shared_ptr<Stretch>;
