// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "frame.h"
#include "measurement.h"
#include "picturecomparison.h"
#include "picturekeeper.h"
#include "readend.h"
#include "readingsigns.h"
#include "recordingpart.h"

#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>
#include <optional>

class DecodingContext;
class MediaFile;
class PartReading;

/// Reads one video file picture by picture: the first video stream by index, decoded in order.
///
/// Used from one thread at a time. Takes `ffmpegMutex` where a decoder is opened or closed.
/// Calling order: construct, `open`, `readFrame` until it answers null, `close`.
class VideoDecoder {
public:
    /// `threads`: how many threads may decode; 0 = as many as the machine has cores. Undamaged
    /// streams give the same pictures with the same times at every number. Damaged ones give
    /// pictures of the same number and times, but where they come from a pipe; what a concealed
    /// area shows may differ, as it may between two runs on one thread.
    explicit VideoDecoder(int threads = 0);
    ~VideoDecoder();
    VideoDecoder(const VideoDecoder&) = delete;
    VideoDecoder& operator=(const VideoDecoder&) = delete;

    /// Asked while a file is opened and read, also while that waits for data; when it answers true,
    /// the open fails, and the read ends as at end of file. Set it before `open`.
    void setInterrupt(std::function<bool()> isInterrupted);

    /// Has the files that are opened from now on give their key frames alone, each with the time at
    /// which it is shown.
    void setKeyframesOnly(bool areWanted) { isKeyframesOnly = areWanted; }

    /// Has the files that are opened from now on decoded in chunks side by side where that is
    /// exact and pays. Their frames are compared where they are decoded, with what `maker` makes
    /// for each thread, and come without them.
    void setChunks(PictureComparisonMaker maker, PictureKeeperMaker keeperMaker = {});

    /// Opens the file at the path `fileName` (UTF-8) and never any other, closing what was open.
    /// False if there is no readable video stream or no decoder for it; `errorText` then says why.
    bool open(const char* fileName);

    /// The next frame; none at the end, for which `readEnd` tells the reason.
    Frame next();

    /// The next frame is decoded in a chunk, unless the decoder falls back.
    bool isInChunks() const;

    /// The next picture, or null at end of file and on any read error; `readEnd` tells which.
    ///
    /// Pictures still inside the decoder when the file ends are not delivered. With `clone` the
    /// record holds its own reference to the picture, otherwise the decoder's frame itself; the
    /// caller owns the record either way.
    DecodedFrame* readFrame(bool clone);

    /// Of a decoder with one thread: goes back or on to a key frame before the picture at `time`
    /// (seconds, as read before), if it can, so far before it that what comes out there is what is
    /// read from the start on. That and the times are the container's word; false if it has none.
    bool seekBefore(double time);

    /// Goes on to `time` (seconds, as read before) without decoding, so far
    /// before it that the pictures from there on are those that are read from the start on. False
    /// if that is in doubt; the file must then be opened again.
    bool skipTo(double time);

    /// Just behind `open`, of a file whose first picture packet `delay` completed: goes on, without
    /// decoding, to one part of it. `readFrame` then answers its pictures, with some before them,
    /// and ends behind the last. False if that cannot be done; the file must then be opened again.
    bool beginPart(RecordingPart part, qint64 delay);

    /// The part that is read; null if it is the whole file. Not while another thread reads.
    const PartReading* part() const;

    /// Whether the open file can be opened again, as pipes cannot.
    bool canReadAgain() const;

    /// Once `readFrame` has answered null: why.
    ReadEnd readEnd() const;

    /// Once `readFrame` has answered null, of a decoder with one thread: the first of the pictures
    /// that are still inside it, without a time; null if there is none. The caller owns the record.
    DecodedFrame* takeHeldFrame();

    /// Closes the file. Safe when nothing is open.
    void close();

    /// The demuxer's position in the file in bytes, -1 if there is none.
    qint64 bytePosition() const;

    /// Index of the chosen stream in the file, -1 if nothing is open or it has no video stream.
    int videoStreamIndex() const;

    /// What the headers say of the stream; nothing while nothing is open.
    StreamFacts facts() const;

    /// What tells of damage in the open file. Not while another thread reads.
    ReadingSigns readingSigns() const;

    /// How many errors the media libraries have told of the open file; those whose file cannot be
    /// told count. Not while another thread reads.
    qint64 libavErrors() const;

    /// Why the last `open` failed, in a few words for a person; empty after a success.
    QString errorText() const;

    /// Whether the last `open` failed for what the file holds, so that it would anywhere.
    bool isFileToBlame() const;

private:
    std::optional<std::int64_t> stampOf(double time) const;

    std::unique_ptr<MediaFile> file;          ///< null while nothing is open
    std::unique_ptr<DecodingContext> context; ///< null while nothing is open
    std::function<bool()> interrupt;
    int threads;
    bool isKeyframesOnly = false;
    PictureComparisonMaker chunkComparison; ///< null: no chunks
    PictureKeeperMaker chunkKeeper;
};
