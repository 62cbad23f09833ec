// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recording.h"
#include "scouting.h"
#include "valuesparts.h"

#include <optional>
#include <vector>

/// A recording of which parts are measured in any order.
class PartedRecording {
public:
    /// `recording` must have a stamp and outlive this object.
    PartedRecording(Recording& recording, ScoutedRecording scouted);

    Recording& recording;
    const ScoutedRecording scouted;

    int count() const { return int(parts.size()); }

    /// Of part `index`, counted from 0.
    RecordingPart part(int index) const { return {index + 1, count()}; }

    /// Takes what was measured of part `index`. False if the recording cannot be joined from its
    /// parts then.
    bool take(int index, const KeptValues& values);

    bool isMeasured(int index) const { return parts[std::size_t(index)].has_value(); }
    bool isWhole() const { return measuredCount == count(); }

    /// The share of its length that was measured, 0 to 1.
    double share() const;

    /// What was measured of the parts from `first` to `last`, all of which must be.
    std::optional<Measurement> run(int first, int last) const;

    /// The same for each row of parts that are, in order.
    QVector<Measurement> runs() const;

    /// All of it, once it is whole.
    JoinedParts whole() const;

    /// Whether it is still what was scouted.
    bool isUnchanged();

    /// Nothing more is measured of it in parts, nor taken from them.
    bool isGivenUp = false;

private:
    std::vector<std::optional<KeptValues>> parts;
    int measuredCount = 0;
    double measuredSeconds = 0.0;
    WatchedRecording watched;
};
