// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmeasure.h"
#include "frame.h"

#include <optional>

/// Leads the measure of cells up to a part of a recording, so that the maps of the part are those
/// of one pass.
class PartCells {
public:
    /// `skip`: of the measure. The first picture that is seen is number `firstSure` or one behind
    /// it, and packet P shows picture P - `delay`.
    PartCells(int skip, qint64 delay, qint64 firstSure)
        : skip(skip)
        , delay(delay)
        , firstSure(firstSure) {}

    /// The next picture before the part.
    void add(const Frame& frame);

    /// Whether a picture at `time`, and all behind it, has the map of one pass, if `add` has seen
    /// all that lie before it.
    bool isSureAt(double time) const;

    /// The same of the last picture that was looked at.
    bool isLastSure() const { return isSureAt(lastTime); }

    /// Once the last picture before the part was added; none if there was no picture.
    std::optional<CellMeasure> take() { return std::move(measure); }

private:
    void look(qint64 number, double time);

    int skip;
    qint64 delay;
    qint64 firstSure;
    std::optional<CellMeasure> measure;
    bool isFromBegin = false; ///< of the recording or of the measure, which times can begin anew
    bool hasLooked = false;
    double firstTime = 0.0; ///< seconds, of the first picture that was looked at
    double lastTime = 0.0;
};
