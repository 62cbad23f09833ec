// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hoursdrawing.h"

#include "dayhours.h"
#include "stripparts.h"

#include <algorithm>
#include <array>

namespace {

constexpr int barsHeight = 64; ///< pixels

QByteArray clock(int hour) {
    return QByteArray::number(hour).rightJustified(2, '0') + ":00";
}

std::array<int, hoursOfDay> clipsByHour(const std::vector<ShownClip>& clips) {
    std::array<int, hoursOfDay> counts{};
    for (const ShownClip& shown : clips) {
        const QTime start = shown.recording->clockAt(shown.clip->start).time();
        ++counts[std::size_t(start.hour())];
    }
    return counts;
}

/// One path for all hours in which something was recorded.
QByteArray recordedPath(const Camera& camera) {
    const auto isRecorded = recordedHours(camera);
    QByteArray path;
    for (int hour = 0; hour < hoursOfDay; ++hour) {
        if (isRecorded[std::size_t(hour)])
            path += barPath(hour, hour + 1);
    }
    return path;
}

QByteArray bar(int hour, int count, int most) {
    const int top = plotUnits - plotUnits * count / most;
    return "<rect class=\"hour\" x=\"" + QByteArray::number(hour + 0.1) + "\" y=\"" +
           QByteArray::number(top) + "\" width=\"0.8\" height=\"" +
           QByteArray::number(plotUnits - top) + "\"><title>" + clock(hour) + " - " +
           clock(hour + 1) + ": " + QByteArray::number(count) + "</title></rect>\n";
}

} // namespace

QByteArray hoursDrawing(const Camera& camera, const std::vector<ShownClip>& clips) {
    const std::array<int, hoursOfDay> counts = clipsByHour(clips);
    const auto* most = std::max_element(counts.begin(), counts.end());
    const int busiest = int(most - counts.begin());
    QByteArray drawing = "<p class=\"over\" aria-hidden=\"true\">Clips by hour of day";
    if (*most > 0)
        drawing += ", at most " + QByteArray::number(*most);
    drawing += "</p>\n<svg class=\"strip hours\" role=\"img\" aria-label=\"Clips by hour of day";
    if (*most > 0)
        drawing += ", most of them, " + QByteArray::number(*most) + ", from " + clock(busiest) +
                   " to " + clock(busiest + 1);
    drawing += "\" height=\"" + QByteArray::number(barsHeight + 24) +
               "\">\n<svg width=\"100%\" height=\"" + QByteArray::number(barsHeight) +
               "\" viewBox=\"0 0 " + QByteArray::number(hoursOfDay) + ' ' +
               QByteArray::number(plotUnits) +
               "\" preserveAspectRatio=\"none\">\n<path class=\"recorded\" d=\"" +
               recordedPath(camera) + "\"/>\n";
    for (int hour = 0; hour < hoursOfDay; ++hour) {
        if (counts[std::size_t(hour)] > 0)
            drawing += bar(hour, counts[std::size_t(hour)], *most);
    }
    drawing += "</svg>\n";
    for (int hour = 0; hour <= hoursOfDay; hour += 3)
        drawing += markDrawing(QString::fromLatin1(clock(hour)), double(hour) / hoursOfDay,
                               hour % 6 != 0, barsHeight);
    return drawing + "</svg>\n";
}
