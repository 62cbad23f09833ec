// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "continuation.h"

#include <QVector>

/// Where a recording lies on the line of time of all that it goes on with. That line counts as the
/// stream of the first one does; seconds.
struct PlacedFile {
    double shift = 0.0; ///< from its own times to those of the line
    double begin = 0.0; ///< of its first picture, on the line
    double last = 0.0;  ///< of its last picture, on the line
    double end = 0.0;   ///< behind its last picture, on the line
    double gap = 0.0;   ///< before it, as clocks say
};

/// What of a stretch of the line lies in one recording: seconds from its first picture.
struct LineStretch {
    int file = 0; ///< its place on the line, 0 for the first
    double start = 0.0;
    double end = 0.0;
};

/// Recordings that go on in one another, on one line of time.
class SequenceLine {
public:
    /// Puts `file` behind the last one. Of the first one `how` does not matter.
    ///
    /// Where stamps go on, nothing is shifted. Where clocks tell, it follows at once or after the
    /// gap; what they have in common, since clocks are read in whole seconds, is not taken away.
    void append(const SequenceFile& file, const Continuation& how = {});

    int count() const { return files.size(); }
    const PlacedFile& placed(int file) const { return files[file]; }
    const SequenceFile& last() const { return newest; }

    /// Seconds from the line's first picture to that of a recording.
    double offsetOf(int file) const { return files[file].begin - files[0].begin; }

    /// The recordings in which a stretch lies, in order: at least one. It is told in seconds from
    /// the line's first picture. What lies before that is the first recording's, what lies behind
    /// all is the last one's; gaps are nobody's.
    QVector<LineStretch> stretchesOf(double start, double end) const;

private:
    int fileAt(double time) const;

    QVector<PlacedFile> files;
    SequenceFile newest;
};
