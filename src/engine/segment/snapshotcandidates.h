// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clippicture.h"
#include "motionscore.h"

#include <QtGlobal>

#include <deque>

/// The pictures of the last seconds among which a clip that opens chooses its snapshot.
///
/// Conceptually a history of pictures, each paired with the motion value of the frame after it: it
/// spans at least the last `span` seconds and never fewer than the 10 newest pictures. Only those
/// that can still be chosen are kept, that is, those with a greater value than every newer one, and
/// of these only the newest few at full size.
class SnapshotCandidates {
public:
    struct Candidate {
        MotionScore motion; ///< of the frame after the picture
        double time;        ///< seconds, of the picture
        ClipPicturePointer picture;
    };

    explicit SnapshotCandidates(double span);

    /// Appends a picture; `now` is the time in seconds of the frame after it, whose score is
    /// `motion`. Pictures that thereby leave the history are released.
    void add(MotionScore motion, double pictureTime, ClipPicturePointer picture, double now);

    /// The candidate with the greatest value, of equals the newest; null if there is none.
    const Candidate* best() const;

private:
    struct Entry {
        Candidate candidate;
        qint64 number; ///< position in the history, counted from its very first picture
    };

    void shrinkOld();
    void dropOld(double now);

    double span;
    std::deque<Entry> entries; ///< values fall strictly from oldest to newest
    std::deque<double> times;  ///< of every picture in the history, oldest first
    qint64 oldest = 0;         ///< number of the oldest picture in the history
};
