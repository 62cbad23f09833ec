// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetkind.h"
#include "placedpart.h"
#include "runup.h"

#include <QVector>

#include <deque>
#include <vector>

/// A packet at which decoding can begin.
struct AccessPoint {
    qint64 packet = 0;
    bool isClosed = true;
    qint64 leading = 0; ///< packets behind it whose pictures may not come out

    qint64 firstPicture() const { return packet + leading; }
};

/// Collects the access points of a stream while its packets are read.
class AccessPoints {
public:
    /// The next packet.
    void add(qint64 packet, const PacketKind& kind);

    /// Those so far, the stream's first packet among them.
    const std::vector<AccessPoint>& all() const { return points; }

    /// Nothing tells that what comes of a packet depends on more than where its stretch begins.
    bool isRegular() const { return !hasDiscontinuity; }

private:
    std::vector<AccessPoint> points{AccessPoint()};
    bool hasDiscontinuity = false;
};

/// The decoding times of a stream's packets.
struct PacketTimes {
    std::deque<double> seconds; ///< never falling
    qint64 delay = 0;           ///< the packet that completed the first picture
};

/// Cuts a stream into parts of at least so many seconds; the last one may be shorter, but by half
/// at most, unless it is the only one.
///
/// A part begins so far behind the access point with which its decoding begins that the picture
/// before its first one, and the pictures of the lead, come out as they do in one pass: then
/// nothing before that point has to be decoded, and what is decoded twice is the lead alone. It
/// ends with the picture before the one with which the next begins.
QVector<PlacedPart> placeParts(const std::vector<AccessPoint>& points, const PacketTimes& times,
                               double shortest, const PartLead& lead);
