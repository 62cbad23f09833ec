// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "areasearch.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QPair>
#include <QSet>

class Clip;
class Video;

/// What is known of an area and the clips: which have motion in it. Clips are known by their
/// recording and their times, so that they may go and come back.
class AreaVerdicts {
public:
    /// The area is another from now on. What was found of the one before counts until a recording
    /// is asked anew.
    void begin();

    void forget() { *this = AreaVerdicts(); }

    void take(const AreaAnswer& answer);

    /// Those of `clips`, all of the job, that are to be asked about; empty if nothing new can be
    /// learned of them.
    QVector<ClipSpan> questions(const Video* job, const QList<const Clip*>& clips) const;

    /// Whether its pictures are known to have another size.
    bool isForeign(const Video* job) const { return foreign.contains(job); }

    /// Whether no maps of it are kept.
    bool isUnmapped(const Video* job) const { return unmapped.contains(job); }

    bool isJudged(const Clip& clip) const;

    /// True also where that is not known.
    bool mayMove(const Clip& clip) const;

private:
    using Spans = QMap<QPair<double, double>, bool>; ///< by start and end: whether it moves

    QHash<const Video*, Spans> verdicts;
    QSet<const Video*> asked; ///< since the area is as it is
    QSet<const Video*> unmapped;
    QSet<const Video*> foreign;
};
