// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "video.h"

#include "clipnames.h"
#include "detection.h"
#include "encoderarguments.h"
#include "settingstable.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <new>

namespace {

/// Keeps a job's progress fields and signals in step with its detection.
class JobClient : public DetectionProgress, public DetectionFindings {
public:
    explicit JobClient(Video& job)
        : job(job) {}

    bool isCancelled() override { return job.state != Video::Running; }

    void opened(const StreamFacts& stream) override {
        job.intraCodec = isIntraCodec(stream.codecName);
        timer.start();
    }

    void frameProcessed(const FrameReport&) override {
        job.elapsedSeconds = int(timer.elapsed() / 1000);
    }

    void positionChanged(qint64 bytePosition, bool isAtEnd) override {
        if (isAtEnd)
            job.state = Video::Finished;
        job.bytesRead = bytePosition;
    }

    void clipFound(const DetectedClip& clip) override {
        Q_EMIT job.newClip(clip.index, clip.snapshot, clip.start, clip.end, clip.snapshotTime);
    }

private:
    Video& job;
    QElapsedTimer timer;
};

} // namespace

Video::Video(const QString& fileName, const QString& exportDirectory, double prerecord,
             double postrecord, double minimum, int skip, bool autoExport, const QImage* mask,
             const QRect* roiRect, bool exportTimestamps, const QDateTime& startDateTime,
             ClipFolderNumbers* numbers)
    : fileName(fileName)
    , fileSize(QFileInfo(fileName).size())
    , prerecord(prerecord)
    , postrecord(postrecord)
    , minimum(minimum)
    , skip(skip)
    , autoExport(autoExport)
    , mask(mask ? std::make_unique<QImage>(*mask) : nullptr)
    , roiRect(roiRect ? std::make_unique<QRect>(*roiRect) : nullptr)
    , exportTimestamps(exportTimestamps)
    , startDateTime(startDateTime) {
    clipDirectory = makeClipFolder(fileName, exportDirectory, numbers);
}

Video::Video(const JobRecord& record)
    : fileName(record.fileName)
    , clipDirectory(record.clipDirectory)
    , state(record.state == Running ? int(Waiting) : record.state)
    , fileSize(QFileInfo(fileName).size())
    , prerecord(record.prerecord)
    , postrecord(record.postrecord)
    , minimum(record.minimum)
    , skip(record.skip)
    , autoExport(record.autoExport)
    , mask(record.mask.isNull() ? nullptr : std::make_unique<QImage>(record.mask))
    , roiRect(record.roiRect ? std::make_unique<QRect>(*record.roiRect) : nullptr)
    , intraCodec(record.intraCodec)
    , exportTimestamps(record.exportTimestamps)
    , startDateTime(record.startDateTime)
    , search(record.search)
    , nextClipNumber(record.nextClipNumber) {
    news.setFacts(record.facts);
}

Video::~Video() = default;

QString Video::shortFileName() const {
    return QFileInfo(fileName).fileName();
}

void Video::detect() {
    state = Running;
    try {
        runDetection();
    } catch (const std::bad_alloc&) {
        if (state == Running)
            state = Failed;
    }
    Q_EMIT resultReady();
}

void Video::runDetection() {
    JobClient client(*this);
    Detection detection(detectionOptions(), client, &client);
    // A pipe or device may have been chosen unseen, beside a file that was looked at.
    const MeasuringEnd end = QFileInfo(fileName).isFile()
                                 ? detection.run(fileName)
                                 : MeasuringEnd{DetectionOutcome::CannotOpen};
    // A read error in the middle is an end like that of the file.
    if (end.outcome != DetectionOutcome::Cancelled && state == Running)
        state = Failed;
    const MotionSeries& series = detection.measurement().series;
    motionValues.resize(series.scores.size());
    std::transform(series.scores.cbegin(), series.scores.cend(), motionValues.begin(),
                   [](MotionScore motion) { return motion.value; });
    frameTimes = series.times;
}

DetectionOptions Video::detectionOptions() const {
    const QSettings store;
    DetectionOptions options;
    options.measure.pixelThreshold =
        std::clamp(settings::pixelThreshold.read(store), settings::pixelThreshold.lowest,
                   settings::pixelThreshold.highest);
    options.measure.skip = skip;
    if (roiRect && mask) {
        options.measure.region.kind = RegionOfInterest::Kind::Rectangle;
        options.measure.region.rectangle = *roiRect;
        options.measure.region.space = mask->size();
    } else if (mask) {
        options.measure.region.kind = RegionOfInterest::Kind::Mask;
        options.measure.region.mask = *mask;
    }
    // Without an upper end: who stores more than the dialog offers means it.
    options.segmentation = {prerecord, postrecord, minimum,
                            std::max(float(settings::motionThreshold.read(store)), 0.0F)};
    return options;
}

JobRecord Video::record() const {
    JobRecord record;
    record.fileName = fileName;
    record.clipDirectory = clipDirectory;
    record.state = state;
    record.prerecord = prerecord;
    record.postrecord = postrecord;
    record.minimum = minimum;
    record.skip = skip;
    record.autoExport = autoExport;
    if (mask)
        record.mask = *mask;
    if (roiRect)
        record.roiRect = *roiRect;
    record.intraCodec = intraCodec;
    record.exportTimestamps = exportTimestamps;
    record.startDateTime = startDateTime;
    record.search = search;
    record.facts = news.facts();
    record.nextClipNumber = nextClipNumber;
    return record;
}
