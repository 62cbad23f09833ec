// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "segmentation.h"

#include <QMap>
#include <QVector>

/// Cuts long clips of one recording into pieces.
///
/// A clip that is longer than `length` is cut every `length` seconds from its start on; the last
/// piece is what is left. Each shows the strongest motion of its own pictures, of equals the first.
/// A piece in which no picture lies, as in a gap of the recording, is left out.
class ClipCutter {
public:
    /// Seconds, greater than 0; to the microsecond.
    explicit ClipCutter(double length)
        : length(length) {}

    /// The next picture of the recording, and its time in seconds from the first one.
    void addPicture(double time, MotionScore motion);

    /// No clip is still to come that begins before this.
    void forgetBefore(double time);

    /// A clip, or its pieces in their order, numbered on from those before. All of its pictures
    /// must have been added but for the last one. Pieces have no snapshot.
    QVector<DetectedClip> cut(const DetectedClip& clip);

private:
    using Pieces = QMap<qint64, DetectedClip>; ///< by their place in the clip

    int firstPictureOf(const DetectedClip& clip) const;
    Pieces piecesOf(const DetectedClip& clip) const;

    double length;
    MotionSeries pictures; ///< times from the recording's first picture
    bool isForward = true; ///< times never ran backwards
    int next = 0;          ///< number of the next clip
};
