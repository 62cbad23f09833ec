// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobsearch.h"

#include "cellsmeasurement.h"
#include "clocktext.h"
#include "keptdetection.h"
#include "measurementcache.h"
#include "measuresettings.h"
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
    if (const auto searched = searchedFileOf(job.fileName)) {
        stamp = searched->stamp;
        client.setFile(*searched);
    }
    if (stamp && MeasurementCache::isOn()) {
        if (auto values = MeasurementCache::instance().find(*stamp, options))
            return decideOnKept(std::move(*values));
    }
    if (stamp)
        watched.emplace(*stamp, WatchedRecording::Measured::Now);
    MeasuringEnd end = measure();
    judgeChange(end);
    return end;
}

MeasuringEnd JobSearch::decideOnKept(KeptValues values) {
    watched.emplace(values.recording, WatchedRecording::Measured::Before);
    measuredAs = measuredWith(values.settings, options);
    measured = std::move(values.measurement);
    if (!measured.series.times.isEmpty()) // what its header says is not kept
        measured.stream.duration = measured.series.times.last() - measured.stream.origin;
    const bool isFailure = values.outcome != DetectionOutcome::Finished;
    return decide({values.outcome, values.reason, isFailure}, job.fileSize);
}

/// Decides while the recording is decoded, or when all is measured: what is said first can depend
/// on how far the key frames lie apart, and what is left out on the whole recording.
MeasuringEnd JobSearch::measure() {
    if (!options.isKeyframesOnly && !(areCellsAsked() && options.cells.isRestlessIgnored)) {
        Detection detection(options, client, &client);
        return runAndKeep(detection);
    }
    client.measureFirst();
    Opening opening(client);
    DetectionOptions wanted = options;
    wanted.areSnapshotsWanted = false;
    Detection detection(wanted, client, &opening);
    const MeasuringEnd end = runAndKeep(detection);
    measuredAs = options;
    return decide(end, job.bytesRead);
}

MeasuringEnd JobSearch::runAndKeep(Detection& detection) {
    MeasuringEnd end = detection.run(job.fileName);
    measured = detection.measurement();
    if (watched && watched->state() == WatchedRecording::State::Same)
        MeasurementCache::instance().keep(*stamp, options, measured, end);
    return end;
}

/// What was found in a recording that is another one now is nobody's. One that a camera still
/// writes to was searched as far as it went.
void JobSearch::judgeChange(MeasuringEnd& end) {
    const auto state = watched ? watched->state() : WatchedRecording::State::Same;
    if (state == WatchedRecording::State::Same || end.outcome == DetectionOutcome::Cancelled)
        return;
    end.isLasting = false;
    if (state == WatchedRecording::State::Grown) {
        const double seconds = client.decidedSeconds();
        end.error = QStringLiteral("it grew while it was searched; what came behind %1 is left out")
                        .arg(preciseClockText(seconds));
        return;
    }
    end.outcome = DetectionOutcome::ReadFailed;
    end.error = state == WatchedRecording::State::Gone
                    ? QStringLiteral("it was removed while it was searched")
                    : QStringLiteral("it was changed while it was searched");
}

/// Decides on what was measured, as far as that went, unless nobody wants to know. The job ends as
/// one that was read up to `bytePosition`.
MeasuringEnd JobSearch::decide(const MeasuringEnd& end, qint64 bytePosition) {
    const bool isOver =
        end.outcome == DetectionOutcome::Cancelled || end.outcome == DetectionOutcome::OutOfMemory;
    if (measured.series.times.isEmpty() || isOver)
        return end;
    client.decideOn(measured.series.times.size(), bytePosition);
    decideOnMeasured();
    const bool isWhole = job.state == Video::Finished;
    return isWhole ? end : MeasuringEnd{DetectionOutcome::Cancelled};
}

void JobSearch::decideOnMeasured() {
    // The last clip's picture is looked for when the job is finished.
    const auto isInterrupted = [this] { return job.state == Video::CancelRequested; };
    PictureFinder finder(job.fileName, measuredAs.value_or(options), measured, isInterrupted);
    if (watched)
        finder.setRefusal([this] { return watched->flaw(); });
    if (!measuredAs)
        finder.readFromStart();
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
    job.measuredSpan = {measured.stream.origin, measured.firstTime};
}
