// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionremark.h"

#include "clocktext.h"
#include "shortestdigits.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double mostlyMoving = 0.9;    ///< of the pictures of a recording; visits have pauses
constexpr double shortestToTell = 20.0; ///< seconds; shorter ones may well be one visit

bool areCells(const ScanOptions& options) {
    return options.detection.detector == Detector::Cells;
}

QString unit(const ScanOptions& options) {
    return areCells(options) ? QStringLiteral(" %") : QString();
}

/// Rounded down, so that what lies below a threshold reads so.
QString roundedDown(float value) {
    const double steps = value < 0.1F ? 1e6 : 1e2;
    return QString::number(std::floor(double(value) * steps) / steps, 'g', 6);
}

QString percentText(double share) {
    return QStringLiteral("%1 %").arg(int(100.0 * std::min(share, 1.0)));
}

/// Where no other options are known to find something.
QString adviceToFindMore(const ScanOptions& options) {
    const bool isMostSensitive = options.detection.cells.step == 1;
    if (areCells(options))
        return isMostSensitive ? QStringLiteral("a lower --threshold-motion may find more")
                               : QStringLiteral("a higher --sensitivity may find more");
    return QStringLiteral("--detector cells may find more");
}

QString adviceToFindLess(const ScanOptions& options) {
    const bool isRestlessIgnored = options.detection.cells.isRestlessIgnored;
    if (areCells(options))
        return isRestlessIgnored
                   ? QStringLiteral("a lower --sensitivity may tell them apart")
                   : QStringLiteral("a lower --sensitivity or --ignore-restless may tell them "
                                    "apart");
    return QStringLiteral("a higher --threshold-value or --detector cells may tell them apart");
}

QString nearness(const SeenMotion& seen, const ScanOptions& options) {
    const SegmentationOptions& segmentation = options.detection.segmentation;
    if (seen.strongest.value == 0.0F)
        return QStringLiteral("no motion at all");
    const QString strongest = QStringLiteral("strongest motion %1 at %2, ")
                                  .arg(roundedDown(seen.strongest.value) + unit(options),
                                       elapsedText(seen.strongestTime));
    if (!segmentation.motionThreshold.isReachedBy(seen.strongest))
        return strongest + QStringLiteral("below ") +
               shortestDigits(segmentation.motionThreshold.value) + unit(options);
    if (options.detection.isKeyframesOnly)
        return strongest + QStringLiteral("but in too few key frames");
    return strongest +
           QStringLiteral("but never in half of %1 s").arg(QString::number(segmentation.minimum));
}

QString throughout(const SeenMotion& seen, double seconds) {
    return QStringLiteral("motion throughout: %1 of it is clips, and %2 of its pictures have "
                          "motion, which may as well be noise, rain or a shaking camera")
        .arg(percentText(seen.inClips / seconds),
             percentText(double(seen.moving) / double(seen.pictures)));
}

} // namespace

void SeenMotion::add(double time, MotionScore motion, MotionThreshold threshold) {
    ++pictures;
    moving += threshold.isReachedBy(motion) ? 1 : 0;
    if (motion.value <= strongest.value)
        return;
    strongest = motion;
    strongestTime = time;
}

void SeenMotion::addClip(const DetectedClip& clip) {
    ++clips;
    inClips += std::max(clip.end - std::max(clip.start, clipsEnd), 0.0);
    clipsEnd = std::max(clipsEnd, clip.end);
}

bool isThroughout(const SeenMotion& seen, double seconds) {
    return seen.clips > 0 && seconds >= shortestToTell && seen.inClips >= mostlyClips * seconds &&
           double(seen.moving) >= mostlyMoving * double(seen.pictures);
}

bool isRemarkable(const SeenMotion& seen, double seconds) {
    return seen.pictures > 0 && (seen.clips == 0 || isThroughout(seen, seconds));
}

QString remarkOn(const SeenMotion& seen, double seconds, const ScanOptions& options,
                 const QString& otherwise) {
    if (!isRemarkable(seen, seconds))
        return {};
    const bool isNothing = seen.clips == 0;
    QString advice = otherwise;
    if (otherwise.isEmpty())
        advice = isNothing ? adviceToFindMore(options) : adviceToFindLess(options);
    return (isNothing ? nearness(seen, options) : throughout(seen, seconds)) +
           QStringLiteral("; ") + advice;
}
