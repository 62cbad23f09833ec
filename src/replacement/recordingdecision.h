// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingcheck.h"
#include "recordingmotion.h"

#include <QImage>
#include <QVector>

#include <atomic>
#include <memory>
#include <optional>

class PictureFinder;

/// What options find in one recording, with pictures. Made on the GUI thread; what it says beside
/// each of its operations says where that may be called, by one thread at a time.
class RecordingDecision {
public:
    RecordingDecision(const Video& video, const DecidingOptions& options);
    ~RecordingDecision();

    /// Any thread: what is worked out is not wanted any more.
    void cancel() { isCancelled = true; }

    /// Not the GUI thread: decides, for `clips` and `flaw`.
    void decide();

    /// Not the GUI thread: the small picture of a clip; null where it cannot be had.
    QImage picture(const DetectedClip& clip);

    /// Nothing where there are no values to decide on, or where the recording has a flaw.
    const std::optional<QVector<DetectedClip>>& clips() const { return found; }

    /// Why nothing can be cut out of the recording, for a person; empty if it can.
    QString flaw() const;

private:
    QString fileName;
    RecordingCheck check;
    DecidingOptions options;
    RecordingMotion motion;
    std::optional<QVector<DetectedClip>> found;
    FilePresence file = FilePresence::Same;
    std::unique_ptr<PictureFinder> finder;
    std::atomic<bool> isCancelled{false};
};
