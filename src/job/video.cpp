// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "video.h"

#include "clipnames.h"
#include "jobsearch.h"
#include "settingstable.h"

#include <QFileInfo>
#include <QPainter>

#include <algorithm>
#include <new>

namespace {

/// What is excluded has the coordinates of the recording's pictures, a rectangle those of its mask:
/// of a mask that may be of another size, what it selects is left.
void exclude(RegionOfInterest& region, const QVector<QRect>& excluded) {
    region.excluded = excluded;
    if (excluded.isEmpty() || region.kind != RegionOfInterest::Kind::Rectangle)
        return;
    region.kind = RegionOfInterest::Kind::Mask;
    region.mask = QImage(region.space, QImage::Format_RGB32);
    region.mask.fill(Qt::black);
    QPainter(&region.mask).fillRect(region.rectangle, Qt::white);
    region.space = QSize();
}

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
    , fileSize(hasEnded() && record.fileSize >= 0 ? record.fileSize : QFileInfo(fileName).size())
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
    , firstClipNumber(hasEnded() ? record.firstClipNumber : record.nextClipNumber)
    , nextClipNumber(record.nextClipNumber)
    , isFolderShared(true) {
    news.setFacts(record.facts);
}

Video::~Video() = default;

void Video::numberOn(const QList<Video*>& jobs) {
    if (!isFolderShared)
        return;
    for (const Video* job : jobs) {
        if (job->clipDirectory == clipDirectory)
            nextClipNumber = std::max(nextClipNumber, job->nextClipNumber);
    }
    firstClipNumber = nextClipNumber;
}

QString Video::shortFileName() const {
    return QFileInfo(fileName).fileName();
}

void Video::detect() {
    state = Running;
    try {
        JobSearch(*this).run();
    } catch (const std::bad_alloc&) {
        if (state == Running)
            state = Failed;
    }
    Q_EMIT resultReady();
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
    exclude(options.measure.region, search.excluded);
    // Without an upper end: who stores more than the dialog offers means it.
    options.segmentation = {prerecord, postrecord, minimum,
                            std::max(float(settings::motionThreshold.read(store)), 0.0F)};
    if (search.deciding) {
        options.detector = search.deciding->detector;
        options.segmentation = search.deciding->segmentation;
        options.cells = search.deciding->cells;
    }
    options.isKeyframesOnly = search.isQuick;
    if (search.isQuick)
        options.segmentation.fewestCompared = fewestQuickComparisons;
    return options;
}

JobRecord Video::record() const {
    JobRecord record;
    record.fileName = fileName;
    record.clipDirectory = clipDirectory;
    record.state = state;
    record.fileSize = fileSize;
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
    record.firstClipNumber = firstClipNumber;
    record.nextClipNumber = nextClipNumber;
    return record;
}
