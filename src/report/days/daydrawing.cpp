// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "daydrawing.h"

#include "htmltext.h"
#include "stripparts.h"
#include "timeaxis.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int columns = 1440;  ///< of each row: a minute where it is a day
constexpr int plotHeight = 48; ///< pixels

/// The greatest value of each column; negative where nothing was recorded.
class RowColumns {
public:
    explicit RowColumns(const DayRow& row)
        : perSecond(columns / row.seconds)
        , greatest(columns, -1.0F) {
        for (const RowSpan& span : row.spans)
            add(span);
    }

    const QVector<float>& values() const { return greatest; }

    float top() const { return *std::max_element(greatest.cbegin(), greatest.cend()); }

private:
    void add(const RowSpan& span) {
        const QVector<float> values = span.recording->strip.columns();
        const double length = span.recording->strip.columnSeconds();
        const int first = int(span.from / length);
        const int last = std::min(int(std::ceil(span.to / length)), values.size());
        for (int i = first; i < last; ++i)
            show(span.at + std::max(i * length, span.from) - span.from,
                 span.at + std::min((i + 1) * length, span.to) - span.from, values[i]);
    }

    void show(double from, double to, float value) {
        const int first = std::clamp(int(from * perSecond), 0, columns - 1);
        const int last = std::clamp(int(std::ceil(to * perSecond)), first + 1, columns);
        for (int i = first; i < last; ++i)
            greatest[i] = std::max(greatest[i], value);
    }

    double perSecond;
    QVector<float> greatest;
};

/// Stretches that follow each other are one.
QByteArray recordedPath(const DayRow& row) {
    const double perSecond = columns / row.seconds;
    QByteArray path;
    double from = 0.0;
    double to = -1.0;
    const auto close = [&] {
        if (to >= from)
            path += barPath(from * perSecond, to * perSecond);
    };
    for (const RowSpan& span : row.spans) {
        if (to < from || (span.at - to) * perSecond > 0.5) {
            close();
            from = span.at;
        }
        to = std::max(to, span.at + span.to - span.from);
    }
    close();
    return path;
}

QByteArray clipsPath(const DayRow& row, const ReportStrips& strips) {
    const double perSecond = columns / row.seconds;
    QByteArray path;
    for (const RowSpan& span : row.spans) {
        for (const ClipStretch& clip : strips.clipsIn(*span.recording)) {
            const double from = std::max(clip.start, span.from);
            const double to = std::min(clip.end, span.to);
            if (from < to)
                path += barPath((span.at + from - span.from) * perSecond,
                                (span.at + to - span.from) * perSecond);
        }
    }
    return path;
}

QByteArray plot(const DayRow& row, const RowColumns& motion, const ReportStrips& strips) {
    return "<svg width=\"100%\" height=\"" + QByteArray::number(plotHeight) + "\" viewBox=\"0 0 " +
           QByteArray::number(columns) + ' ' + QByteArray::number(plotUnits) +
           "\" preserveAspectRatio=\"none\">\n<path class=\"recorded\" d=\"" + recordedPath(row) +
           "\"/>\n<path class=\"shade\" d=\"" + clipsPath(row, strips) +
           "\"/>\n<path class=\"motion\" d=\"" + motionPath(motion.values(), strips.top()) +
           "\"/>\n</svg>\n";
}

QByteArray marks(const DayRow& row) {
    QByteArray all;
    bool isMinor = false;
    for (const TimeMark& mark : timeMarks(row.seconds, row.begin)) {
        all += markDrawing(mark.label, mark.seconds / row.seconds, isMinor, plotHeight);
        isMinor = !isMinor;
    }
    return all;
}

} // namespace

QByteArray dayDrawing(const DayRow& row, const MotionReport& report, const ReportStrips& strips) {
    const RowColumns motion(row);
    const QByteArray greatest = QByteArray::number(double(std::max(motion.top(), 0.0F)), 'f', 2);
    const QString date = row.begin.toString(QStringLiteral("yyyy-MM-dd"));
    return "<svg class=\"strip day\" role=\"img\" aria-label=\"Motion on " + htmlText(date) +
           ", at most " + greatest + report.unit() +
           "; clips are shaded, gaps are hatched\" height=\"" +
           QByteArray::number(plotHeight + 24) + "\">\n" + plot(row, motion, strips) + marks(row) +
           thresholdLine(report.threshold, strips.top(), plotHeight) + "</svg>\n";
}
