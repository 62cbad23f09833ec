// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipchoice.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace {

/// A damaged recording's times may be no numbers, which stand in no order.
double sortable(double key) {
    return key == key ? key : 0.0; // NOLINT(misc-redundant-expression)
}

/// Pieces of one length differ by what sums of times are rounded by.
double inMicroseconds(double seconds) {
    return std::round(seconds * 1e6);
}

double timeKey(const ClipLine& line) {
    const RecordingStart& start = line.recording.start;
    if (!start.isKnown())
        return std::numeric_limits<double>::infinity();
    return double(start.time.toMSecsSinceEpoch()) / 1000.0 + line.clip.start;
}

double keyOf(const ClipLine& line, std::optional<ClipOrder> order) {
    if (!order)
        return 0.0;
    switch (*order) {
    case ClipOrder::Strength:
        return -double(line.clip.strongestMotion.value);
    case ClipOrder::Length:
        return -inMicroseconds(line.clip.end - line.clip.start);
    case ClipOrder::Time:
        break;
    }
    return timeKey(line);
}

/// Writes what was left for the end; the picture is in memory only as long as that takes.
bool makeNow(ClipLine& line, const ClipChoice::Make& make, const AsidePicture& picture) {
    line.clip.snapshot = picture.picture();
    if (picture.isThere() && line.clip.snapshot.isNull())
        line.clip.snapshotFlaw = QStringLiteral("it could not be kept while it waited");
    const bool isMade = make(line);
    line.clip.snapshot = QImage();
    return isMade;
}

} // namespace

bool ClipRank::operator<(const ClipRank& other) const {
    return std::tie(key, recording, clip) < std::tie(other.key, other.recording, other.clip);
}

ClipRank rankOf(const ClipLine& line, std::optional<ClipOrder> order) {
    return {sortable(keyOf(line, order)), line.recording.place, line.clip.index};
}

ClipRank ClipChoice::waitingRank(const ClipLine& line) const {
    return rankOf(line, options.order.value_or(ClipOrder::Strength));
}

bool ClipChoice::mayCount(const ClipLine& line) const {
    const std::lock_guard<std::mutex> lock(mutex);
    const bool isFull = options.most && int(clips.size()) >= *options.most;
    return !isFull || waitingRank(line) < clips.rbegin()->first;
}

void ClipChoice::add(ClipLine line, const Make& make) {
    const bool isLate = options.most.has_value();
    const AsidePicture picture(isLate ? line.clip.snapshot : QImage());
    if (!isLate)
        make(line);
    line.clip.snapshot = QImage();
    const ClipRank rank = waitingRank(line);
    const std::lock_guard<std::mutex> lock(mutex);
    clips.emplace(rank, Waiting{std::move(line), isLate ? make : Make(), picture});
    if (options.most && int(clips.size()) > *options.most)
        clips.erase(std::prev(clips.end()));
}

bool ClipChoice::finish(const std::function<void(const ClipLine&)>& tell) {
    bool isMade = true;
    const std::vector<Waiting*> all = inRecordings();
    for (Waiting* clip : all) {
        if (clip->make)
            isMade = makeNow(clip->line, clip->make, clip->picture) && isMade;
    }
    if (options.order) {
        for (const auto& clip : clips)
            tell(clip.second.line);
    } else {
        for (const Waiting* clip : all)
            tell(clip->line);
    }
    return isMade;
}

/// The clips that count, in the order of the call.
std::vector<ClipChoice::Waiting*> ClipChoice::inRecordings() {
    std::vector<Waiting*> all;
    for (auto& clip : clips)
        all.push_back(&clip.second);
    const auto isBefore = [](const Waiting* left, const Waiting* right) {
        return rankOf(left->line, std::nullopt) < rankOf(right->line, std::nullopt);
    };
    std::sort(all.begin(), all.end(), isBefore);
    return all;
}
