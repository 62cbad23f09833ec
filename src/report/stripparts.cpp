// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stripparts.h"

#include "htmltext.h"

#include <algorithm>
#include <cmath>

namespace {

QByteArray percent(double share) {
    return QByteArray::number(100.0 * share, 'f', 3) + '%';
}

/// Labels at the edges are kept inside.
QByteArray anchorAt(double share) {
    if (share < 0.04)
        return "start";
    return share > 0.96 ? "end" : "middle";
}

} // namespace

double stripHeight(double motion, double top) {
    return std::sqrt(std::clamp(motion / top, 0.0, 1.0));
}

int depthOf(double motion, double top) {
    return plotUnits - int(std::lround(plotUnits * stripHeight(motion, top)));
}

QByteArray plotNumber(double length) {
    return QByteArray::number(length, 'f', 2);
}

QByteArray motionPath(const QVector<float>& columns, double top) {
    constexpr int gap = -1;
    QByteArray path;
    int depth = gap;
    for (int i = 0; i <= columns.size(); ++i) {
        const bool isThere = i < columns.size() && columns[i] >= 0.0F;
        const int next = isThere ? depthOf(double(columns[i]), top) : gap;
        if (next == depth)
            continue;
        if (depth == gap)
            path += 'M' + QByteArray::number(i) + ' ' + QByteArray::number(plotUnits);
        else
            path += 'H' + QByteArray::number(i);
        path += next == gap ? 'V' + QByteArray::number(plotUnits) + 'Z'
                            : 'V' + QByteArray::number(next);
        depth = next;
    }
    return path;
}

QByteArray unseenPath(const QVector<float>& columns) {
    QByteArray path;
    for (int from = 0; from < columns.size(); ++from) {
        int to = from;
        while (to < columns.size() && columns[to] < 0.0F)
            ++to;
        if (to > from)
            path += barPath(from, to);
        from = to;
    }
    return path;
}

QByteArray barPath(double from, double to) {
    return 'M' + plotNumber(from) + " 0V" + QByteArray::number(plotUnits) + 'H' + plotNumber(to) +
           "V0Z";
}

QByteArray thresholdLine(double threshold, double top, int plotHeight) {
    const QByteArray y = plotNumber(plotHeight * (1.0 - stripHeight(threshold, top)));
    return "<line class=\"threshold\" x1=\"0\" x2=\"100%\" y1=\"" + y + "\" y2=\"" + y + "\"/>\n";
}

QByteArray markDrawing(const QString& label, double share, bool isMinor, int plotHeight) {
    const QByteArray x = percent(share);
    return "<g" + QByteArray(isMinor ? " class=\"minor\"" : "") + "><line class=\"tick\" x1=\"" +
           x + "\" x2=\"" + x + "\" y1=\"0\" y2=\"" + QByteArray::number(plotHeight + 4) +
           "\"/><text x=\"" + x + "\" y=\"" + QByteArray::number(plotHeight + 18) +
           "\" text-anchor=\"" + anchorAt(share) + "\">" + htmlText(label) + "</text></g>\n";
}
