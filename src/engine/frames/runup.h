// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "libavpointers.h"
#include "packetkind.h"

#include <deque>
#include <limits>

/// What is wanted of the pictures before a part, beside the one that its first is compared with.
struct PartLead {
    double seconds = 0.0; ///< up to the part
    int pictures = 0;     ///< that must lie between what comes out first and those seconds

    bool isThere() const { return seconds > 0.0 || pictures > 0; }
};

/// Where decoding begins for a part of a recording: the last access point before it, or, where
/// pictures are to lead up to it, the last one that is early enough.
class RunUp {
public:
    /// `delay`: the packet that completed the recording's first picture.
    RunUp(const PartLead& lead, qint64 delay, const AVRational& timeBase);

    /// For a part whose run-up is known: `packet`, all behind which can be decoded if it
    /// `isClosed`, else what is shown from `firstPicture` on.
    RunUp(qint64 packet, qint64 firstPicture, bool isClosed);

    /// The next packet before the part, or its first one.
    void reach(const NumberedPacket& packet);

    /// The same packet, which is not the part's first.
    void add(const NumberedPacket& packet, const PacketKind& kind);

    /// Has decoding begin with the stream's first packet.
    void takeStart();

    /// Where it begins.
    qint64 packet() const { return places.front().packet; }

    /// All that follows it can be decoded.
    bool isClosed() const { return places.front().isClosed; }

    /// The number of the first picture that comes out as it does in one pass.
    qint64 firstPicture() const { return places.front().firstPicture(); }

private:
    /// An access point.
    struct Place {
        qint64 packet = 0;
        bool isClosed = true;
        qint64 leading = 0; ///< packets of it whose pictures may not come out

        /// Seconds, of the picture that lies the lead's number of them behind its first sure one.
        double time = std::numeric_limits<double>::infinity();

        qint64 firstPicture() const { return packet + leading; }
    };

    bool isEarlyEnough(const Place& place, double time) const;

    PartLead lead;
    qint64 delay = 0;
    AVRational timeBase{1, 1};
    std::deque<Place> places; ///< oldest first, never none
};
