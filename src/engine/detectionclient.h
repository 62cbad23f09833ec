// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionoutcome.h"
#include "segmentation.h"
#include "streamdescription.h"

#include <QByteArray>

/// One frame after the first, measured or held.
struct FrameReport {
    qint64 number = 0; ///< number of the picture; the first one decoded, never reported, is 0
    double time = 0.0; ///< seconds from the first picture
    MotionScore motion;

    /// No clip still to be found starts before this (ClipSegmenter::earliestStart).
    double earliestStart = 0.0;
};

/// What a detection asks and tells while it runs, on the thread that runs it.
class DetectionClient {
public:
    virtual ~DetectionClient() = default;

    /// Asked at least once per frame, on any thread; the detection ends when it answers true.
    virtual bool isCancelled() = 0;

    /// The file is open and has its first two pictures. `codecName` is the media libraries' name;
    /// `duration` in seconds, 0 if unknown.
    virtual void opened(const QByteArray& codecName, double duration) = 0;

    /// Before `opened`: the pictures are numbered at this rate, per second.
    virtual void numbered(double frameRate) { static_cast<void>(frameRate); }

    /// Before `opened`: what programs that play the recording go by. `firstTime`: seconds of the
    /// first picture, as the stream counts them.
    virtual void described(const StreamDescription& stream, double firstTime) {
        static_cast<void>(stream);
        static_cast<void>(firstTime);
    }

    /// After `opened`: the region of interest selects no pixel, so that no motion will be found.
    virtual void regionIsEmpty() {}

    virtual void frameProcessed(const FrameReport& frame) = 0;

    /// After every read: the demuxer's position in bytes, -1 if unknown.
    virtual void positionChanged(qint64 bytePosition) = 0;

    /// No further picture comes, be it the end of the file or an error of what the file lies on.
    virtual void endReached() = 0;

    virtual void clipFound(const DetectedClip& clip) = 0;
};
