// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "demuxer.h"
#include "libavpointers.h"
#include "packetindex.h"
#include "readend.h"

#include <deque>
#include <functional>
#include <optional>

/// Reads the packets of a demuxer's video stream.
class PacketReader {
public:
    /// `demuxer` must outlive this object.
    explicit PacketReader(Demuxer& demuxer)
        : demuxer(demuxer) {}

    bool isInterrupted() const { return demuxer.isInterrupted(); }

    /// Must be there.
    const AVStream& stream() const { return *demuxer.stream(); }

    /// Of the demuxer in the file; -1 if there is none.
    qint64 bytePosition() const { return demuxer.bytePosition(); }

    /// Begins anew, with a demuxer that has been opened again.
    void restart();

    /// The stream's next packet with any bytes in it; nothing at end of file and on any error, and
    /// from then on nothing more, even where the file could be read on behind the error.
    std::optional<NumberedPacket> read();

    /// Goes to a place from which the stream can be read that is, as far as the container knows, a
    /// key frame at or before `dts`. False if it cannot.
    bool seek(std::int64_t dts);

    /// Goes to packet `number` of `packets`, all of this file as it was read before. From there on
    /// packets have their numbers and the decoding times that they had then, and reading ends at
    /// one that is another now. False if the place cannot be found; then it is anywhere.
    bool goTo(const PacketIndexPointer& packets, qint64 number);

    /// Reading ended at a packet that is not what it was.
    bool isOtherwise() const { return hasMismatch; }

    /// From now on reads key frames alone. Once open.
    void readKeyframesOnly();

    /// Whether nothing was read since it was opened.
    bool isAtStart() const { return nextNumber == 0; }

    /// Has everything that is read from the file from now on looked at.
    void setWatch(std::function<void(const NumberedPacket&)> newWatch);

    /// Has `packets` read again before what follows them.
    void putBack(std::deque<NumberedPacket> packets);

    /// Once `read` has answered nothing: why.
    const ReadEnd& readEnd() const { return end; }

private:
    std::optional<NumberedPacket> readNext();
    bool findFrom(std::int64_t dts, qint64 number);
    bool skipUpTo(qint64 number);
    bool isIndexed(const AVPacket& packet, qint64 number) const;
    bool compare(NumberedPacket& packet);
    void noteEnd(int result);
    bool isWanted(const AVPacket& packet) const;

    Demuxer& demuxer;
    std::function<void(const NumberedPacket&)> watch;
    std::deque<NumberedPacket> returned;
    qint64 nextNumber = 0;
    bool isKeyframesOnly = false; ///< nothing but key frames
    PacketIndexPointer index;     ///< null: packets are taken as they come
    bool hasMismatch = false;     ///< with it
    bool hasEnded = false;
    ReadEnd end;
};
