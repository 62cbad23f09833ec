// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "framebudget.h"
#include "framedecoder.h"
#include "mediafile.h"
#include "partreading.h"
#include "picturework.h"

#include <optional>

struct ChunkPlan;

/// How the frames of a file are decoded.
struct DecodingOptions {
    int threads = 1;              ///< that may decode
    bool isKeyframesOnly = false; ///< key frames alone, each with the time at which it is shown

    /// With a comparison the file is decoded in chunks side by side where that is exact and pays,
    /// and all this is done where they are decoded. It may be null.
    PictureWork work;
};

/// Decodes an open file with the decoder that suits it, and goes on with another one where that
/// one falls back.
class DecodingContext {
public:
    /// `file` must be open and outlive this object.
    DecodingContext(MediaFile& file, DecodingOptions options);

    /// Why there is no decoder, for a person; empty if there is.
    const QString& errorText() const { return error; }

    /// The next frame; none at the end, and from then on.
    Frame next();

    /// Why there are no more.
    const ReadEnd& end() const { return ownEnd.error.isEmpty() ? reader.readEnd() : ownEnd; }

    /// The next frame is decoded in a chunk, unless the decoder falls back.
    bool isInChunks() const { return areChunks; }

    /// Goes on to `dts` without decoding, so far before it that the frames from there on are those
    /// that come from the start on. False if that is not certain; the file must then be read from
    /// its start.
    bool skipTo(std::int64_t dts);

    /// At the start of a file whose first frame packet `delay` completed: goes on, without
    /// decoding, to one part of it, if it can. The frames are then those of the part, with some
    /// before them, at least those of the lead.
    void beginPart(RecordingPart wanted, const PartLead& lead, qint64 delay);

    /// Goes to a part whose places are known, by a seek among `packets`, all of the file's, the
    /// first of whose frames packet `delay` completed. False if it cannot; the file is then
    /// anywhere.
    bool goToPart(const PlacedPart& part, const PacketIndexPointer& packets, qint64 delay);

    /// The part that is read; null if it is the whole file.
    const PartReading* part() const { return wantedPart ? &*wantedPart : nullptr; }

    /// With one thread: goes back or on to a key frame before the frame at `dts`, if it can, so far
    /// before it that what comes out there is what comes out from the start on. That and the times
    /// are the container's word; false if it has none.
    bool seekBefore(std::int64_t dts);

    /// Behind the end, with one thread: the first of the pictures that are still in the decoder;
    /// null if there is none.
    AVFramePointer takeHeld() { return decoder ? decoder->takeHeld() : nullptr; }

    ReadingSigns readingSigns() const;

    /// That the libraries have told of the file; those whose file cannot be told count.
    qint64 libavErrors() const;

private:
    bool open();
    bool openKeyframes();
    bool openChunks(const ChunkPlan& plan);
    bool openWhole(const AVCodecParameters& parameters, int threads, Restart& from);
    Frame nextFrame();
    void restart(Restart from);

    MediaFile& file;
    PacketReader& reader;
    DecodingOptions options;
    FrameBudget memory;                    ///< outlives the decoder
    std::unique_ptr<FrameDecoder> decoder; ///< null after a failure
    bool areChunks = false;                ///< that `decoder` decodes
    std::optional<PartReading> wantedPart; ///< where only one is read
    qint64 lastNumber = -1;                ///< packet that completed the last frame
    QString error;
    ReadEnd ownEnd; ///< where the reader does not know it
};
