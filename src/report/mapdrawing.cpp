// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mapdrawing.h"

#include "clipfigure.h"

#include <array>

namespace {

constexpr int longestSide = 240; ///< pixels

/// The classes of places, from a share of the longest time on: each takes in those after it.
struct Often {
    const char* name;
    double share;
};
constexpr std::array<Often, 4> classes = {
    {{"rare", 1.0 / 256.0}, {"some", 1.0 / 32.0}, {"often", 1.0 / 6.0}, {"most", 0.5}}};

QByteArray digits(int number) {
    return QByteArray::number(number);
}

/// One path of a row's runs of places with at least so many seconds.
QByteArray placesPath(const MotionMap& map, double seconds) {
    const CellGrid grid = map.grid();
    QByteArray path;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const int begin = column;
            while (column < grid.columns && map.seconds(column, row) >= seconds)
                ++column;
            if (column > begin)
                path += 'M' + digits(begin) + ' ' + digits(row) + 'H' + digits(column) + "v1H" +
                        digits(begin) + 'Z';
        }
    }
    return path;
}

const ReportedClip* strongestOf(const std::vector<const ReportedRecording*>& recordings) {
    const ReportedClip* strongest = nullptr;
    for (const ReportedRecording* recording : recordings) {
        for (const ReportedClip& clip : recording->clips) {
            const bool isStronger =
                !strongest || shownMotion(clip.strength) > shownMotion(strongest->strength);
            if (!clip.pictureFile.isEmpty() && isStronger)
                strongest = &clip;
        }
    }
    return strongest;
}

} // namespace

QByteArray mapDrawing(const std::vector<const ReportedRecording*>& recordings,
                      const MotionReport& report) {
    MotionMap map;
    for (const ReportedRecording* recording : recordings)
        map.add(recording->map);
    if (map.grid().count() == 0)
        return {};
    const ReportedClip* clip = strongestOf(recordings);
    const QSize size = (clip ? clip->pictureSize : QSize(map.grid().columns, map.grid().rows))
                           .scaled(longestSide, longestSide, Qt::KeepAspectRatio)
                           .expandedTo({1, 1});
    const QByteArray columns = digits(map.grid().columns);
    const QByteArray rows = digits(map.grid().rows);
    QByteArray drawing =
        "<div class=\"map\">\n<p class=\"over\" aria-hidden=\"true\">Where motion was</p>\n"
        "<svg class=\"where\" role=\"img\" aria-label=\"Where motion was\" width=\"" +
        digits(size.width()) + "\" height=\"" + digits(size.height()) + "\" viewBox=\"0 0 " +
        columns + ' ' + rows + "\" preserveAspectRatio=\"none\">";
    if (clip)
        drawing += "<image href=\"" + pictureReference(*clip, report) + "\" width=\"" + columns +
                   "\" height=\"" + rows + "\" preserveAspectRatio=\"none\"/>";
    for (const Often& often : classes)
        drawing += "<path class=\"" + QByteArray(often.name) + "\" d=\"" +
                   placesPath(map, often.share * map.longest()) + "\"/>";
    return drawing + "</svg>\n</div>\n";
}
