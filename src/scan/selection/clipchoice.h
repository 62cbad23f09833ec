// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "asidepicture.h"
#include "clipformat.h"
#include "selectionoptions.h"

#include <functional>
#include <map>
#include <mutex>

/// Where a clip stands among all clips of a call: the smaller, the further in front.
struct ClipRank {
    double key = 0.0; ///< 0 where nothing but its place counts
    int recording = 0;
    int clip = 0;

    bool operator<(const ClipRank& other) const;
};

/// The rank of a clip. By time, clips of recordings whose start is known have it by the clock, and
/// come in front of the others, which come recording by recording.
ClipRank rankOf(const ClipLine& line, std::optional<ClipOrder> order);

/// The clips of all recordings, which wait until it is certain which of them count and in what
/// order. Any thread may call anything but `finish`.
///
/// Where all count, what is made of a clip is made at once. Else it is when all are there, so that
/// nothing is made of those that do not count; no more are kept than may count.
class ClipChoice {
public:
    /// Writes the files of a clip and notes them in its line; false if that failed.
    using Make = std::function<bool(ClipLine&)>;

    explicit ClipChoice(const SelectionOptions& options)
        : options(options) {}

    /// Whether a clip may still count, and its picture is worth being looked for.
    bool mayCount(const ClipLine& line) const;

    /// Takes in a clip; `make` is called now or in `finish`.
    void add(ClipLine line, const Make& make);

    /// Makes what is still to be made, recording by recording, and tells of all clips that count,
    /// in their order. False where something could not be made now.
    bool finish(const std::function<void(const ClipLine&)>& tell);

private:
    struct Waiting {
        ClipLine line;
        Make make; ///< null: nothing is to be made
        AsidePicture picture;
    };

    ClipRank waitingRank(const ClipLine& line) const;
    std::vector<Waiting*> inRecordings();

    SelectionOptions options;
    mutable std::mutex mutex; ///< of what follows
    std::map<ClipRank, Waiting> clips;
};
