// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partplan.h"

#include <algorithm>

namespace {

/// The first picture behind an access point that a part can begin with; none where the stream ends
/// before.
qint64 beginBehind(const AccessPoint& point, const PacketTimes& times, const PartLead& lead) {
    // The packet that completes the picture that the lead lies behind.
    const qint64 first = point.firstPicture() + lead.pictures + times.delay;
    if (first >= qint64(times.seconds.size()))
        return qint64(times.seconds.size());
    const double earliest = times.seconds[std::size_t(first)] + lead.seconds;
    const auto place =
        std::lower_bound(times.seconds.begin() + first + 1, times.seconds.end(), earliest);
    return qint64(place - times.seconds.begin()) - times.delay;
}

} // namespace

void AccessPoints::add(qint64 packet, const PacketKind& kind) {
    if (kind.access != PacketKind::Access::None && packet > 0)
        points.push_back({packet, kind.access == PacketKind::Access::ClosedGop});
    points.back().leading += kind.isLeading ? 1 : 0;
    hasDiscontinuity = hasDiscontinuity || kind.isDiscontinuity;
}

QVector<PlacedPart> placeParts(const std::vector<AccessPoint>& points, const PacketTimes& times,
                               double shortest, const PartLead& lead) {
    const qint64 pictures = qint64(times.seconds.size()) - times.delay;
    if (pictures <= 0)
        return {};
    QVector<PlacedPart> parts{PlacedPart()};
    for (const AccessPoint& point : points) {
        const qint64 begin = beginBehind(point, times, lead);
        if (begin >= pictures || point.packet == 0)
            continue;
        const double time = times.seconds[std::size_t(begin)];
        const bool isLate = time - times.seconds[std::size_t(parts.last().begin)] >= shortest;
        if (!isLate || times.seconds.back() - time < shortest / 2.0)
            continue;
        parts.last().end = begin;
        parts.append({point.packet, point.firstPicture(), point.isClosed, begin, 0, false});
    }
    parts.last().end = qint64(times.seconds.size());
    parts.last().isToTheEnd = true;
    return parts;
}
