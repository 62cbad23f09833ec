// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "partpromise.h"

#include <deque>
#include <optional>
#include <vector>

/// A part of one of several recordings; both count from 0.
struct PartPlace {
    int recording = 0;
    int part = 0;

    bool operator==(const PartPlace& other) const {
        return recording == other.recording && part == other.part;
    }
};

/// The parts of several recordings that are still to be measured: the most promising of all first,
/// then those of recordings that promise nothing, in their order.
class PartQueue {
public:
    /// The next recording, with its parts. `promises`: one for each of them, or none.
    void add(int parts, const QVector<PartPromise>& promises);

    /// All have been added.
    void arrange();

    /// The next one, which is taken out; nothing where none is left.
    std::optional<PartPlace> next();

    /// Has a part come next, where it is still in there.
    void prefer(const PartPlace& place);

    void remove(const PartPlace& place);
    void removeAll(int recording);

    /// How many are in there.
    int left() const { return leftCount; }

private:
    bool takeOut(const PartPlace& place);

    std::vector<PartPlace> promising;
    QVector<PartPromise> promises; ///< of those
    std::vector<PartPlace> others;
    std::deque<PartPlace> preferred;
    std::deque<PartPlace> queue;
    std::vector<std::vector<char>> areLeft; ///< by recording and part
    int leftCount = 0;
};
