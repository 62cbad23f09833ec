// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stripdrawing.h"

#include "htmltext.h"
#include "timeaxis.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double least = 0.1;  ///< of the top, so that noise does not fill a strip
constexpr int height = 1000;   ///< of the plot, in its own units; its width is one per column
constexpr int plotHeight = 96; ///< pixels

QByteArray digits(double number) {
    return QByteArray::number(number, 'f', 2);
}

QByteArray percent(double share) {
    return QByteArray::number(100.0 * share, 'f', 3) + '%';
}

int depthOf(double motion, double top) {
    return height - int(std::lround(height * stripHeight(motion, top)));
}

/// Columns of equal height in a row are one line.
QByteArray motionPath(const QVector<float>& columns, double top) {
    QByteArray path = "M0 " + QByteArray::number(height);
    int depth = -1;
    for (int i = 0; i < columns.size(); ++i) {
        const int next = depthOf(double(columns[i]), top);
        if (next != depth)
            path += (i > 0 ? "H" + QByteArray::number(i) : QByteArray()) + 'V' +
                    QByteArray::number(next);
        depth = next;
    }
    return path + 'H' + QByteArray::number(columns.size()) + 'V' + QByteArray::number(height) + 'Z';
}

/// One path, so that clips that overlap are not shaded twice.
QByteArray clipsPath(const ReportedRecording& recording) {
    const double column = recording.strip.columnSeconds();
    QByteArray path;
    for (const ReportedClip& clip : recording.clips) {
        const double start = std::max(clip.start, 0.0) / column;
        path += 'M' + digits(start) + " 0V" + QByteArray::number(height) + 'H' +
                digits(clip.end / column) + "V0Z";
    }
    return path;
}

QByteArray plot(const ReportedRecording& recording, double top) {
    const QVector<float> columns = recording.strip.columns();
    const double width = std::max(recording.seconds / recording.strip.columnSeconds(), 1.0);
    return "<svg width=\"100%\" height=\"" + QByteArray::number(plotHeight) + "\" viewBox=\"0 0 " +
           digits(width) + ' ' + QByteArray::number(height) +
           "\" preserveAspectRatio=\"none\">\n<path class=\"shade\" d=\"" + clipsPath(recording) +
           "\"/>\n<path class=\"motion\" d=\"" + motionPath(columns, top) + "\"/>\n</svg>\n";
}

QByteArray thresholdLine(double threshold, double top) {
    const QByteArray y = digits(plotHeight * (1.0 - stripHeight(threshold, top)));
    return "<line class=\"threshold\" x1=\"0\" x2=\"100%\" y1=\"" + y + "\" y2=\"" + y + "\"/>\n";
}

/// Labels at the edges are kept inside.
QByteArray anchorAt(double share) {
    if (share < 0.04)
        return "start";
    return share > 0.96 ? "end" : "middle";
}

QByteArray markOf(const TimeMark& mark, double share, bool isMinor) {
    const QByteArray x = percent(share);
    return "<g" + QByteArray(isMinor ? " class=\"minor\"" : "") + "><line class=\"tick\" x1=\"" +
           x + "\" x2=\"" + x + "\" y1=\"0\" y2=\"" + QByteArray::number(plotHeight + 4) +
           "\"/><text x=\"" + x + "\" y=\"" + QByteArray::number(plotHeight + 18) +
           "\" text-anchor=\"" + anchorAt(share) + "\">" + htmlText(mark.label) + "</text></g>\n";
}

QByteArray marks(double seconds, const QDateTime& startTime) {
    QByteArray all;
    bool isMinor = false;
    for (const TimeMark& mark : timeMarks(seconds, startTime)) {
        all += markOf(mark, mark.seconds / seconds, isMinor);
        isMinor = !isMinor;
    }
    return all;
}

} // namespace

double stripTop(const MotionReport& report) {
    const double highest = thresholdSteps(report.detector).last();
    double strongest = std::max(least, 2.0 * report.threshold);
    for (const ReportedRecording& recording : report.recordings)
        strongest = std::max(strongest, double(recording.strip.greatest()));
    return std::min(strongest, highest);
}

double stripHeight(double motion, double top) {
    return std::sqrt(std::clamp(motion / top, 0.0, 1.0));
}

QByteArray stripDrawing(const ReportedRecording& recording, const MotionReport& report,
                        double top) {
    const QByteArray greatest = QByteArray::number(double(recording.strip.greatest()), 'f', 2);
    return "<svg class=\"strip\" role=\"img\" aria-label=\"Motion over time, at most " + greatest +
           report.unit() + "; clips are shaded\" height=\"" + QByteArray::number(plotHeight + 24) +
           "\">\n" + plot(recording, top) + marks(recording.seconds, report.startTime) +
           thresholdLine(report.threshold, top) + "</svg>\n";
}
