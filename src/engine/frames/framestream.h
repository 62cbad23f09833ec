// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodeahead.h"
#include "decodingcontext.h"
#include "pictureclock.h"
#include "timerange.h"

/// What of a recording is read, and how.
struct FramePlan {
    TimeOptions times;
    TimeRange range;
    std::optional<RecordingPart> part; ///< in place of a range
    PartLead lead = {};                ///< what is wanted before the part
    bool isKeyframesOnly = false;      ///< key frames alone
    int threads = 0; ///< that decode; 0 = as many as the machine has cores, 1 = the caller's alone

    PictureWork work = {}; ///< as of `DecodingOptions`; of use where the whole recording is read
};

/// The frames of one recording that a plan asks for, in their order and with the times that the
/// plan makes of them.
///
/// Where it can, a range or a part is reached without decoding what lies before it. Where it then
/// turns out that packets do not tell the numbers of the frames, the recording is read from its
/// start after all; nobody sees anything of that but that it takes longer.
class FrameStream {
public:
    /// Opens the file at the path `fileName` and never any other. `isInterrupted`, which may be
    /// null, is asked while it is opened and read, also while that waits for data; when it answers
    /// true, the open fails, and reading ends as at end of file. Undamaged recordings give the same
    /// frames with the same times with any number of threads. Damaged ones give frames of the same
    /// number and times, but where they come from a pipe; what a concealed area shows may differ,
    /// as it may between two runs on one thread.
    FrameStream(QByteArray fileName, FramePlan plan, std::function<bool()> isInterrupted = {});

    bool isOpen() const { return decoder && decoder->errorText().isEmpty(); }

    /// Why it is not open, in a few words for a person; empty if it is.
    const QString& errorText() const { return decoder ? decoder->errorText() : file->errorText(); }

    /// Whether it is not open for what the file holds, so that it would be nowhere.
    bool isFileToBlame() const { return file->isFileToBlame(); }

    StreamFacts facts() const { return file->facts(); }

    /// The next frame; waits for it. None at the end of what is planned, once interrupted, and
    /// where the first one has no time that is of use.
    Frame next();

    /// Once `next` has answered none: why.
    ReadEnd end() const { return decoder && !endsEarly ? decoder->end() : ReadEnd(); }

    /// The number of the range's first frame, as the recording counts them; once there is one.
    qint64 firstNumber() const { return numberOfFirst; }

    /// Seconds, of the recording's first frame.
    double origin() const { return first ? first->time : 0.0; }

    /// Whether the first frame was none for want of a time.
    bool isFirstUseless() const { return hasUselessFirst; }

    /// Whether the times must be of use and all frames so far have the same one.
    bool isStandingStill() const { return !clock.isRunning(); }

    /// Frames per second by which all are numbered; 0 if they have times of their own.
    double forcedFrameRate() const { return clock.frameRate(); }

    /// The part that is read; null where the recording cannot be cut.
    const PartReading* part() const { return decoder ? decoder->part() : nullptr; }

    /// Goes on to another range, behind the last one; the file is opened anew where it must.
    void goOnTo(const TimeRange& range);

    /// Goes to a part of a recording whose packets were read before, the first of whose frames
    /// packet `delay` completed at `firstTime`. False if it cannot; nothing can be read then.
    bool goToPart(const PlacedPart& part, const PacketIndexPointer& packets, qint64 delay,
                  double firstTime);

    /// Reading ended since the recording is not what it was.
    bool isOtherwise() const { return file->packets().isOtherwise(); }

    /// As of `DecodingContext`; `time` in seconds, as it was read before.
    bool seekBefore(double time);

    ReadingSigns readingSigns() const { return decoder->readingSigns(); }
    qint64 libavErrors() const { return decoder->libavErrors(); }

private:
    /// A recording's first frame, which the others are counted from.
    struct First {
        double time;
        qint64 packet;
        bool isTimed; ///< by itself
    };

    bool open();
    void beginAnew();
    bool findFirst();
    void goToRange();
    bool skip();
    std::optional<std::int64_t> stampOf(double time) const;
    Frame nextInRange();
    Frame nextTimed();
    Frame endBefore(Frame frame);
    Frame nextDecoded();
    void count(const Frame& frame);

    QByteArray fileName;
    FramePlan plan;
    std::function<bool()> interrupt;
    std::unique_ptr<MediaFile> file;
    std::unique_ptr<DecodingContext> decoder; ///< null without a stream
    std::optional<DecodeAhead> ahead;         ///< once nothing comes from chunks
    PictureClock clock;
    std::optional<First> first;
    Frame second;             ///< handed out next, where it has been read; else none
    bool isSkipped = false;   ///< what lies before the range was not decoded
    bool isUntested = false;  ///< and it has not been seen whether that was right
    bool endsEarly = false;   ///< before what has been read
    bool hasReached = false;  ///< the range
    bool hasMismatch = false; ///< packets do not tell the numbers of frames
    bool hasUselessFirst = false;
    qint64 currentNumber = -1;
    qint64 numberOfFirst = -1;
};
