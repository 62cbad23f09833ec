// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobsearch.h"

#include "cellsmeasurement.h"
#include "keptdetection.h"
#include "picturefinder.h"
#include "video.h"

#include <QFileInfo>

#include <algorithm>

namespace {

/// Tells of a stream that is measured before anything is decided.
class Opening : public DetectionFindings {
public:
    explicit Opening(JobClient& client)
        : client(client) {}

    void opened(const StreamFacts& stream) override { client.opened(stream); }
    void frameProcessed(const FrameReport&) override {}
    void clipFound(const DetectedClip&) override {}

private:
    JobClient& client;
};

} // namespace

JobSearch::JobSearch(Video& job)
    : job(job)
    , options(job.detectionOptions())
    , client(job) {
    options.areMapsKept = true;
}

void JobSearch::run() {
    const MeasuringEnd end = endOfRun([this] { return search(); });
    client.endClips();
    // A read error in the middle is an end like that of the file.
    if (end.outcome != DetectionOutcome::Cancelled && job.state == Video::Running)
        job.state = Video::Failed;
    takeValues();
    client.end(end, measured.damage);
}

MeasuringEnd JobSearch::search() {
    // A pipe or device may have been chosen unseen, beside a file that was looked at.
    const QFileInfo file(job.fileName);
    if (file.exists() && !file.isFile())
        return {DetectionOutcome::CannotOpen, QStringLiteral("no regular file")};
    return isMeasuredFirst() ? measureFirst() : measure();
}

/// Decides while the recording is decoded.
MeasuringEnd JobSearch::measure() {
    Detection detection(options, client, &client);
    MeasuringEnd end = detection.run(job.fileName);
    measured = detection.measurement();
    return end;
}

/// What is said first depends on how far the key frames lie apart, and what is left out on the
/// whole recording.
bool JobSearch::isMeasuredFirst() const {
    return options.isKeyframesOnly || (areCellsAsked() && options.cells.isRestlessIgnored);
}

MeasuringEnd JobSearch::measureFirst() {
    client.measureFirst();
    Opening opening(client);
    DetectionOptions wanted = options;
    wanted.areSnapshotsWanted = false;
    Detection detection(wanted, client, &opening);
    const MeasuringEnd end = detection.run(job.fileName);
    measured = detection.measurement();
    return decide(end, job.bytesRead);
}

/// Decides on what was measured, as far as that went, unless nobody wants to know. The job ends as
/// one that was read up to `bytePosition`.
MeasuringEnd JobSearch::decide(const MeasuringEnd& end, qint64 bytePosition) {
    const bool isOver =
        end.outcome == DetectionOutcome::Cancelled || end.outcome == DetectionOutcome::OutOfMemory;
    if (!measured.hasPictures || isOver)
        return end;
    client.decideOn(measured.series.times.size(), bytePosition);
    decideOnMeasured();
    const bool isWhole = job.state == Video::Finished;
    return isWhole ? end : MeasuringEnd{DetectionOutcome::Cancelled};
}

void JobSearch::decideOnMeasured() {
    const auto isInterrupted = [this] { return client.isCancelled(); };
    PictureFinder finder(job.fileName, options, measured, isInterrupted);
    const auto pictures = [&finder](int picture) -> ClipPicturePointer {
        return std::make_shared<LatePicture>(finder, picture);
    };
    const Measurement ofCells =
        areCellsAsked() ? cellsMeasurement(measured, options, restlessOf(measured, options))
                        : Measurement();
    decideAgain(areCellsAsked() ? ofCells : measured, options.segmentation, pictures, isInterrupted,
                client);
}

/// Those of the pictures that were decided on.
void JobSearch::takeValues() {
    const MotionSeries& series = measured.series;
    const int count = std::min(client.decided(), series.times.size());
    job.frameTimes = series.times.mid(0, count);
    job.motionValues.resize(count);
    std::transform(series.scores.cbegin(), series.scores.cbegin() + count, job.motionValues.begin(),
                   [](MotionScore motion) { return motion.value; });
}
