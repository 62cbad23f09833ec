// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetskip.h"
#include "placedpart.h"
#include "randomaccesspoints.h"
#include "recordingpart.h"
#include "runup.h"

#include <QSize>

#include <cstdint>
#include <deque>
#include <optional>

/// Where one part of a recording begins and ends, found while its packets are read, and whether all
/// that is seen of it is so regular that the parts together are what one pass gives.
///
/// Part K of N begins with the first packet at which decoding can begin and that lies at or behind
/// (K - 1) / N of the file's bytes, and ends with the packet before the one with which the next
/// part begins: whoever measures another part finds the same places. Packet P of a regular stream
/// shows picture P - `delay`, counted from 0 in the order in which pictures are shown.
class PartReading {
public:
    /// `fileBytes`: of the file; `delay`: the packet that completed its first picture.
    PartReading(const AVStream& stream, RecordingPart part, const PartLead& lead, qint64 fileBytes,
                qint64 delay);

    /// The same for a part whose places are known.
    PartReading(const AVStream& stream, const PlacedPart& part, qint64 delay);

    /// The stream's next packet. Those that were seen before are ignored.
    void add(const NumberedPacket& packet);

    /// There are no further packets.
    void endReached();

    bool hasBegun() const { return firstPacket >= 0; }

    /// Its first packet, and its first picture.
    qint64 begin() const { return firstPacket; }

    /// The packet behind its last; once that is known.
    qint64 end() const { return endPacket; }

    qint64 delay() const { return pictureDelay; }

    /// Where decoding begins: one access point before the part or, for the lead, more, so that what
    /// its first pictures refer to and are compared with is there. 0 before the part has begun and
    /// there was none.
    qint64 runUp() const { return before.packet(); }

    /// Has decoding begin with the stream's first packet.
    void runUpFromStart() { before.takeStart(); }

    /// The first of the pictures before the part that are what one pass gives, if all is regular.
    qint64 firstSure() const;

    /// Takes note of a picture that packet `completedBy` completed. False if it lies behind the
    /// part.
    bool isInside(const AVFrame& picture, qint64 completedBy, bool isTimed);

    /// Whether it ends with the file.
    bool isToTheEnd() const { return isAtEnd; }

    /// What is seen of the part so far is regular.
    bool isRegular() const { return areAllRegular && lastDiscontinuity < runUp(); }

private:
    void placeAccessPoint(qint64 packet);
    bool isWhereExpected(qint64 completedBy) const;
    bool isSound(const AVFrame& picture) const;

    RandomAccessPoints accessPoints;
    AVCodecID codec;
    RecordingPart part;
    RunUp before;
    bool hasLead; ///< the first picture that is sure lies where the run-up says
    qint64 fileBytes = 0;
    qint64 pictureDelay;
    QSize size;                    ///< pixels, of all pictures
    qint64 next = 0;               ///< number of the packet to come
    std::int64_t farthest = 0;     ///< bytes, of the packets so far
    qint64 lastDiscontinuity = -1; ///< the packet before the end of the part
    qint64 firstPacket = -1;
    qint64 endPacket = -1;
    qint64 lastCompletedBy = -1; ///< of the last picture
    bool isAtEnd = false;
    bool areAllRegular = true;
};

/// Reads on without decoding up to the begin of `part`, which is watching. Answers the packets from
/// its run-up on; none, where these are too many, and the stream must be read from its start.
std::deque<NumberedPacket> skipToPart(PacketReader& reader, PartReading& part);
