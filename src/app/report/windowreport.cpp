// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "windowreport.h"

#include "cellsmeasurement.h"
#include "damagetext.h"
#include "foldercheck.h"
#include "keptmeasurement.h"
#include "listedreport.h"
#include "recordingplaces.h"
#include "reportfolder.h"
#include "snapshotfolder.h"
#include "video.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr double slack = 1e-6; // seconds; times are sums

SearchState stateOf(const JobRecord& job) {
    switch (job.state) {
    case Video::Waiting:
        return SearchState::NotBegun;
    case Video::Failed:
        return SearchState::Failed;
    case Video::Finished:
        return SearchState::Done;
    default:
        return job.facts.seconds > 0.0 ? SearchState::CutShort : SearchState::NotBegun;
    }
}

QString reasonOf(const JobFacts& facts) {
    return facts.damage.isThere() ? damageText(facts.damage) : facts.error;
}

/// What is kept of it, with its maps; nothing where it is not.
std::optional<Measurement> keptOf(const ListedReport::Recording& recording, Detector detector) {
    DetectionOptions options = recording.options;
    options.detector = detector;
    return keptMeasurement(recording.job.fileName, options);
}

/// What the page's detector says of each picture, from the first one on. A session that was gone on
/// with has no values.
MotionSeries seriesOf(const ListedReport::Recording& recording, Detector detector,
                      const std::optional<Measurement>& kept) {
    MotionSeries series;
    if (detector == Detector::Cells) {
        if (kept)
            series =
                cellsMeasurement(*kept, recording.options, restlessOf(*kept, recording.options))
                    .series;
        return series;
    }
    if (recording.times.isEmpty())
        return kept ? kept->series : series;
    series.times = recording.times;
    for (const float value : recording.values)
        series.scores.append(MotionScore{value});
    return series;
}

/// The value for which its picture was chosen: what led to that, or what came of it.
MotionScore strengthOf(const ReportedClip& clip, const MotionSeries& series, double origin) {
    const double shown = clip.snapshotTime + origin - slack;
    const auto first = std::lower_bound(series.times.cbegin(), series.times.cend(), shown);
    const int at = int(first - series.times.cbegin());
    MotionScore strength;
    for (int i = at; i < std::min(at + 2, series.scores.size()); ++i)
        strength.value = std::max(strength.value, series.scores[i].value);
    return strength;
}

/// By which the page's marks find the recording again.
void showFile(const RecordingStamp& stamp, ReportedRecording& reported) {
    reported.bytes = stamp.bytes;
    reported.modified = stamp.modified / 1000000;
}

/// Files that are written, and taken away again if not all of them can be.
class NewFiles {
public:
    explicit NewFiles(const QString& folder)
        : folder(folder)
        , isFolderNew(!QDir(folder).exists())
        , arePicturesNew(!QDir(reportPictureFolder(folder)).exists()) {}

    void expect(const QString& path) {
        if (!QFile::exists(path))
            files.append(path);
    }

    void takeAway() const {
        for (const QString& file : files)
            QFile::remove(file);
        if (arePicturesNew)
            QDir().rmdir(reportPictureFolder(folder));
        if (isFolderNew)
            QDir().rmdir(folder);
    }

private:
    QString folder;
    bool isFolderNew;
    bool arePicturesNew;
    QStringList files;
};

class ReportWriter {
public:
    explicit ReportWriter(const ListedReport& listed)
        : listed(listed)
        , files(listed.folder)
        , pictures(reportPictureFolder(listed.folder)) {
        report.folder = listed.folder;
        report.detector = listed.detector;
        report.threshold = listed.threshold;
    }

    QString write() {
        QString failure = prepareFolder(reportPictureFolder(listed.folder), FolderLink::Refused);
        for (const auto& recording : listed.recordings) {
            if (failure.isEmpty())
                failure = add(recording);
        }
        if (failure.isEmpty())
            failure = writeReportPage(report, reportPage(listed.folder));
        if (!failure.isEmpty())
            files.takeAway();
        return failure;
    }

private:
    QString add(const ListedReport::Recording& recording) {
        const JobRecord& job = recording.job;
        const StreamFacts& stream = job.facts.stream;
        ReportedRecording reported;
        reported.name = job.fileName;
        reported.path = QFileInfo(job.fileName).absoluteFilePath();
        if (job.exportTimestamps)
            reported.start = {job.startDateTime, StartSource::Given, StartCertainty::Sure, {}};
        reported.state = stateOf(job);
        reported.reason = reasonOf(job.facts);
        reported.isQuick = job.search.isQuick;
        reported.histogram = MotionHistogram(report.detector);
        if (stream.frameRate == 0.0)
            reported.offset = stream.origin - stream.description.startTime;
        if (job.facts.file)
            showFile(job.facts.file->stamp, reported);
        const auto kept = keptOf(recording, report.detector);
        const MotionSeries series = seriesOf(recording, report.detector, kept);
        for (int i = 0; i < series.times.size(); ++i)
            reported.add(series.times[i] - stream.origin, series.scores[i]);
        reported.seconds = std::max(reported.seconds, job.facts.seconds);
        QString failure = addClips(recording, series, reported);
        if (kept)
            enterPlaces(*kept, recording.options, reported);
        report.recordings.push_back(reported);
        return failure;
    }

    QString addClips(const ListedReport::Recording& recording, const MotionSeries& series,
                     ReportedRecording& reported) {
        const QString beginning = pictures.next(recording.job.fileName);
        for (const auto& listedClip : recording.clips) {
            ReportedClip clip = listedClip.reported;
            clip.strength = strengthOf(clip, series, recording.job.facts.stream.origin);
            QString failure = writePicture(listedClip.picture, beginning, clip);
            if (!failure.isEmpty())
                return failure;
            reported.clips.append(clip);
        }
        return {};
    }

    /// One that has none is shown without.
    QString writePicture(const QImage& picture, const QString& beginning, ReportedClip& clip) {
        if (picture.isNull())
            return {};
        files.expect(snapshotPath(beginning, clip.index));
        return writeReportPicture(picture, beginning, listed.folder, clip);
    }

    const ListedReport& listed;
    MotionReport report;
    NewFiles files;
    SnapshotFolder pictures;
};

} // namespace

QString writeReport(const ListedReport& listed) {
    return ReportWriter(listed).write();
}
