// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "otherfindings.h"

#include "celldefaults.h"
#include "cellsmeasurement.h"
#include "clipmerger.h"
#include "keptdetection.h"
#include "motionremark.h"
#include "optiontable.h"

namespace {

QString countedClips(int count) {
    return count == 1 ? QStringLiteral("1 clip") : QStringLiteral("%1 clips").arg(count);
}

/// As they would be printed.
QVector<DetectedClip> merged(const QVector<DetectedClip>& found, double gap) {
    QVector<DetectedClip> clips;
    ClipMerger merger(gap);
    const auto take = [&clips](const std::optional<DetectedClip>& clip) {
        if (clip)
            clips.append(*clip);
    };
    for (const DetectedClip& clip : found)
        take(merger.add(clip));
    take(merger.finish());
    return clips;
}

QString joined(QStringList parts) {
    parts.removeAll(QString());
    return parts.join(QStringLiteral("; "));
}

} // namespace

OtherFindings::OtherFindings(const Measurement& measured, bool isMeanFitting,
                             const Measurement& decided, const ScanOptions& options,
                             const SegmentationOptions& segmentation)
    : measured(measured)
    , isMeanFitting(isMeanFitting)
    , decided(decided)
    , options(options)
    , segmentation(segmentation) {}

QString OtherFindings::more() const {
    const IsWanted isAny = [](const Found& found) { return found.clips > 0; };
    if (options.detection.detector == Detector::Mean)
        return joined({shorterMinimum(), cellsInstead(isAny)});
    return joined({shorterMinimum(), otherSensitivity(1, isAny), meanInstead()});
}

QString OtherFindings::less() const {
    const IsWanted isLess = [](const Found& found) { return found.share < mostlyClips; };
    if (options.detection.detector == Detector::Mean)
        return cellsInstead(isLess);
    return joined({otherSensitivity(-1, isLess), withoutRestless(isLess)});
}

OtherFindings::Found OtherFindings::decide(const Measurement& measurement,
                                           const SegmentationOptions& other) const {
    const double seconds = measurement.series.times.last() - measurement.stream.origin;
    QVector<DetectedClip> clips = clipsOf(measurement, other);
    if (options.mergeGap)
        clips = merged(clips, *options.mergeGap);
    SeenMotion seen;
    for (const DetectedClip& clip : qAsConst(clips))
        seen.addClip(clip);
    return {seen.clips, seconds > 0.0 ? seen.inClips / seconds : 0.0};
}

/// Where cells decide already, everything else is as it was asked for.
OtherFindings::Found OtherFindings::decideOnCells(const CellOptions& other) const {
    DetectionOptions cells = options.detection;
    cells.cells = other;
    const bool isAsked = cells.detector == Detector::Cells;
    return decide(cellsMeasurement(measured, cells, restlessOf(measured, cells)),
                  isAsked ? segmentation : segmentationOf(cellsThreshold, cellsMinimum));
}

QString OtherFindings::shorterMinimum() const {
    const double shortest = scanOption("minimum").range->lowest;
    if (decided.series.times.isEmpty() || segmentation.minimum <= shortest)
        return {};
    SegmentationOptions shorter = segmentation;
    shorter.minimum = shortest;
    const Found found = decide(decided, shorter);
    if (found.clips == 0)
        return {};
    return QStringLiteral("--minimum %1 finds %2")
        .arg(QString::number(shortest), countedClips(found.clips));
}

QString OtherFindings::cellsInstead(const IsWanted& isWanted) const {
    if (measured.maps.count() == 0)
        return {};
    const Found found = decideOnCells(CellOptions());
    const QString name = nameOf("cells", cellsThreshold);
    return isWanted(found) ? QStringLiteral("%1 finds %2").arg(name, countedClips(found.clips))
                           : QStringLiteral("--detector cells finds no %1")
                                 .arg(found.clips == 0 ? QStringLiteral("clip, either")
                                                       : QStringLiteral("quiet in it, either"));
}

QString OtherFindings::meanInstead() const {
    if (!isMeanFitting || measured.series.times.isEmpty())
        return {};
    const SegmentationOptions mean;
    const Found found =
        decide(measured, segmentationOf(double(mean.motionThreshold.value), mean.minimum));
    if (found.clips == 0)
        return {};
    return QStringLiteral("%1 finds %2")
        .arg(nameOf("mean", double(mean.motionThreshold.value)), countedClips(found.clips));
}

/// `towards`: 1 or -1. The nearest sensitivity that gives what is wanted.
QString OtherFindings::otherSensitivity(int towards, const IsWanted& isWanted) const {
    if (measured.maps.count() == 0)
        return {};
    const NumberRange range = *scanOption("sensitivity").range;
    const int asked = sensitivityOf(options.detection.cells.step);
    for (int next = asked + towards; next >= range.lowest && next <= range.highest;
         next += towards) {
        CellOptions other = options.detection.cells;
        other.step = stepOf(next);
        const Found found = decideOnCells(other);
        if (isWanted(found))
            return QStringLiteral("--sensitivity %1 finds %2")
                .arg(QString::number(next), countedClips(found.clips));
    }
    return QStringLiteral("no --sensitivity finds %1")
        .arg(towards > 0 ? QStringLiteral("a clip") : QStringLiteral("quiet in it"));
}

QString OtherFindings::withoutRestless(const IsWanted& isWanted) const {
    CellOptions other = options.detection.cells;
    if (measured.maps.count() == 0 || other.isRestlessIgnored)
        return {};
    other.isRestlessIgnored = true;
    const Found found = decideOnCells(other);
    return isWanted(found)
               ? QStringLiteral("--ignore-restless finds %1").arg(countedClips(found.clips))
               : QString();
}

/// What counts with another detector, where the threshold is that one's own.
SegmentationOptions OtherFindings::segmentationOf(double threshold, double minimum) const {
    SegmentationOptions other = segmentation;
    other.motionThreshold.value = float(threshold);
    if (!isGiven("minimum"))
        other.minimum = minimum;
    return other;
}

/// With a threshold in place of one that was given to the other detector.
QString OtherFindings::nameOf(const char* detector, double threshold) const {
    QString name = QStringLiteral("--detector ") + QLatin1String(detector);
    if (isGiven("threshold-motion"))
        name += QStringLiteral(" --threshold-motion ") + QString::number(threshold);
    return name;
}

bool OtherFindings::isGiven(const char* option) const {
    return options.givenOptions.contains(QLatin1String(option));
}
