// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stretchcutter.h"
#include "stretchedpicture.h"
#include "stretchorder.h"
#include "stretchworkers.h"

/// Reads a recording's pictures, decoded in stretches side by side, with the result of one decoder.
///
/// What is read and not yet handed out is bounded by its bytes. In doubt it ends early, and the
/// rest is to be decoded from the packets that it gives back.
class StretchReader {
public:
    /// `reader` must be open, at its start. `context`, for one thread, is newly opened for its
    /// stream. `reader` and `memory` must outlive this object and all its pictures.
    /// `keeperMaker` may be null: no small pictures are made.
    StretchReader(PacketReader& reader, PictureMemory& memory, CodecContextPointer context,
                  const StretchPlan& plan, const PictureComparisonMaker& maker,
                  const PictureKeeperMaker& keeperMaker);

    /// The next picture. Nothing at the end, once interrupted, and in doubt.
    std::optional<StretchedPicture> next();

    /// Once `next` has answered nothing: whether there is more.
    bool isInDoubt() const { return hasDoubt; }

    /// Where to go on in doubt.
    struct Rest {
        /// From a border a whole stretch before the first picture that is not handed out, or the
        /// start of the file. Empty: the file must be read from its start.
        std::deque<NumberedPacket> packets;
        PacketPointer firstPacket; ///< of the stream; null without memory
        qint64 lastNumber = -1;    ///< of the packet that completed the last picture handed out
        bool isDamaged = false;    ///< several threads would soon be in doubt, too
        int reorderDelay = -1;     ///< that the decoder has to begin with; -1: what it finds
    };
    Rest takeRest();

private:
    bool isNextCertain() const;
    void begin();
    void fill();
    bool canReadOn() const;
    bool handOnNext();
    void letGoOfBefore(Stretch& next);
    void readMarksUpTo(qint64 number);
    void makePictures(const StretchPointer& stretch, const std::vector<qint64>& numbers);
    std::vector<StretchPointer> stretchesToGoOn() const;

    PacketReader& reader;
    StretchPlan plan;
    std::shared_ptr<StretchStream> stream;
    StretchCutter cutter;
    StretchOrder order;
    std::deque<StretchPointer> inHand;     ///< whole and not yet handed on, oldest first
    StretchPointer before;                 ///< the last one that was; null at first
    std::deque<StretchedPicture> pictures; ///< to be handed out
    qint64 lastNumber = -1;
    qint64 bytesDone = 0; ///< of the stretches before `before`
    bool hasTimes;        ///< seen while the file was opened
    bool hasBegun = false;
    bool isAtEnd = false; ///< of the packets
    bool hasDoubt = false;
    StretchWorkers workers; ///< last: they end before all that they work on
};
