// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stripdrawing.h"

#include "stripparts.h"
#include "timeaxis.h"

#include <algorithm>

namespace {

constexpr int plotHeight = 96; ///< pixels

/// One path, so that clips that overlap are not shaded twice.
QByteArray clipsPath(const ReportedRecording& recording, const ReportStrips& strips) {
    const double column = recording.strip.columnSeconds();
    QByteArray path;
    for (const ClipStretch& clip : strips.clipsIn(recording))
        path += barPath(std::max(clip.start, 0.0) / column, clip.end / column);
    return path;
}

QByteArray unseen(const ReportedRecording& recording) {
    const QByteArray path = unseenPath(recording.strip.columns());
    if (path.isEmpty())
        return {};
    return "<path class=\"unseen\" d=\"" + path + "\"><title>Not looked at</title></path>\n";
}

QByteArray plot(const ReportedRecording& recording, const ReportStrips& strips) {
    const double width = std::max(recording.seconds / recording.strip.columnSeconds(), 1.0);
    return "<svg width=\"100%\" height=\"" + QByteArray::number(plotHeight) + "\" viewBox=\"0 0 " +
           plotNumber(width) + ' ' + QByteArray::number(plotUnits) +
           "\" preserveAspectRatio=\"none\">\n" + unseen(recording) + "<path class=\"shade\" d=\"" +
           clipsPath(recording, strips) + "\"/>\n<path class=\"motion\" d=\"" +
           motionPath(recording.strip.columns(), strips.top()) + "\"/>\n</svg>\n";
}

QByteArray marks(const ReportedRecording& recording) {
    QByteArray all;
    bool isMinor = false;
    for (const TimeMark& mark : timeMarks(recording.seconds, recording.start.time)) {
        all += markDrawing(mark.label, mark.seconds / recording.seconds, isMinor, plotHeight);
        isMinor = !isMinor;
    }
    return all;
}

} // namespace

QByteArray stripDrawing(const ReportedRecording& recording, const MotionReport& report,
                        const ReportStrips& strips) {
    const QByteArray greatest = QByteArray::number(double(recording.strip.greatest()), 'f', 2);
    return "<svg class=\"strip\" role=\"img\" aria-label=\"Motion over time, at most " + greatest +
           report.unit() + "; clips are shaded\" height=\"" + QByteArray::number(plotHeight + 24) +
           "\">\n" + plot(recording, strips) + marks(recording) +
           thresholdLine(report.threshold, strips.top(), plotHeight) + "</svg>\n";
}
