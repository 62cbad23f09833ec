// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "libavpointers.h"

#include <deque>

/// The newest packets of a stream, back to one from which decoding can begin anew and give what it
/// would have given had it never stopped.
///
/// Such a packet is an access point of the stream that lies a whole group of pictures before the
/// last picture handed out, so that everything that is still to come depends on packets behind it.
/// The very first packet serves as well. What is kept is bounded: where groups of pictures are too
/// large, there can be nothing to begin from until two access points have passed.
class RestartPackets {
public:
    /// Keeps a reference to the packet's data. Packets come in the order of their numbers.
    void add(const NumberedPacket& packet, bool isAccessPoint);

    /// A picture was handed out that packet `number` completed; older packets may now go.
    void handedOut(qint64 number);

    /// All that is kept, oldest first, beginning where decoding can begin; empty if it can nowhere.
    std::deque<NumberedPacket> take();

private:
    bool canBegin() const;
    void dropUpTo(qint64 number);

    std::deque<NumberedPacket>
        packets; ///< the oldest is an access point or the stream's first packet
    std::deque<qint64> laterAccessPoints; ///< numbers of those behind the oldest packet
    qint64 bytes = 0;
    qint64 lastHandedOut = -1;
};
