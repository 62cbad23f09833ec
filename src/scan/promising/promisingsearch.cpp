// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "promisingsearch.h"

#include "sidebyside.h"

#include <QThread>

#include <algorithm>
#include <atomic>
#include <new>
#include <numeric>
#include <utility>

namespace {

/// A lead costs up to a second or two of decoding for each part.
constexpr double shortestWithMaps = 30.0;

DetectionOptions measuredOptions(const ScanOptions& options) {
    DetectionOptions detection = options.detection;
    detection.areMapsKept = detection.areMapsKept || detection.detector == Detector::Cells;
    return detection;
}

PartWish wishOf(const DetectionOptions& detection) {
    PartWish wish;
    wish.lead = PartDetection::lead(detection);
    if (detection.areMapsKept)
        wish.shortest = shortestWithMaps;
    return wish;
}

bool overlaps(const DetectedClip& left, const DetectedClip& right) {
    return left.start <= right.end && right.start <= left.end;
}

} // namespace

PromisingSearch::PromisingSearch(std::vector<Recording>& recordings, PromisingTools tools)
    : recordings(recordings)
    , tools(std::move(tools))
    , lengths(recordings.size(), 0.0)
    , ofPlace(recordings.size()) {}

PromisingSearch::~PromisingSearch() = default;

int PromisingSearch::workers() const {
    const ScanOptions& options = tools.options;
    const int threads = options.detection.threads;
    return threads > 0 ? threads * options.jobs : std::max(1, QThread::idealThreadCount());
}

bool PromisingSearch::isOver() const {
    return tools.isEnding() || tools.budget.isSpent();
}

void PromisingSearch::run() {
    scoutAll();
    arrange();
    runSideBySide(workers(), [this] {
        try {
            work();
        } catch (const std::bad_alloc&) {
            // What is missing is searched in order, where that is told.
        }
    });
}

void PromisingSearch::scoutAll() {
    std::atomic<std::size_t> next{0};
    runSideBySide(std::min(workers(), int(recordings.size())), [this, &next] {
        for (std::size_t i = next++; i < recordings.size() && !isOver(); i = next++) {
            try {
                scoutOne(i);
            } catch (const std::bad_alloc&) {
                ofPlace[i].reset();
            }
        }
    });
}

/// What is kept as a whole, or was named as values, needs no parts.
void PromisingSearch::scoutOne(std::size_t place) {
    Recording& recording = recordings[place];
    if (!recording.valuesFile.isEmpty())
        return;
    const ValuesStore::Found found = tools.values.find(recording);
    if (found.values || !recording.stamp)
        return;
    ScoutedRecording scouted =
        scout(recording.path, wishOf(measuredOptions(tools.options)), tools.isEnding);
    lengths[place] = scouted.seconds;
    if (scouted.parts.isEmpty())
        return;
    ofPlace[place] = std::make_unique<PartedRecording>(recording, std::move(scouted));
    takeKeptParts(*ofPlace[place]);
}

void PromisingSearch::takeKeptParts(PartedRecording& parted) {
    if (tools.options.valuesDirectory.isEmpty())
        return;
    for (int i = 0; i < parted.count() && !isOver(); ++i) {
        ValuesStore::Found found = tools.values.findOwnPart(parted.recording, parted.part(i));
        if (!found.values)
            continue;
        auto maps = ValuesStore::mapsOf(found);
        if (!maps)
            continue;
        found.values->measurement.maps = std::move(*maps);
        parted.take(i, *found.values);
    }
}

void PromisingSearch::arrange() {
    for (const auto& one : ofPlace) {
        if (!one)
            continue;
        parted.push_back(one.get());
        queue.add(one->count(), one->scouted.promises);
    }
    queue.arrange();
    told.resize(parted.size());
    for (std::size_t i = 0; i < parted.size(); ++i) {
        for (int part = 0; part < parted[i]->count(); ++part) {
            if (parted[i]->isMeasured(part))
                queue.remove({int(i), part});
        }
    }
    length = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    tools.budget.setLength(length);
}

void PromisingSearch::work() {
    PartReader reader(measuredOptions(tools.options), tools.isEnding);
    while (const auto task = next())
        measure(reader, *task);
}

std::optional<PromisingSearch::Task> PromisingSearch::next() {
    if (isOver())
        return std::nullopt;
    const std::lock_guard<std::mutex> lock(mutex);
    const auto place = queue.next();
    if (!place)
        return std::nullopt;
    tools.budget.add(parted[std::size_t(place->recording)]->scouted.partSeconds[place->part]);
    return Task{*place, threadsFor(queue.left() + 1)};
}

/// The last parts get the cores of those who soon find nothing left to do. No more than a few,
/// whose pictures take memory, too.
int PromisingSearch::threadsFor(int left) const {
    constexpr int most = 4;
    return std::clamp(workers() / left, 1, most);
}

void PromisingSearch::measure(PartReader& reader, const Task& task) {
    const PartPlace& place = task.place;
    PartedRecording& one = *parted[std::size_t(place.recording)];
    const RecordingPart part = one.part(place.part);
    const auto detection = reader.measure(one.recording.path, one.scouted, part, task.threads);
    if (tools.isEnding())
        return;
    if (!detection || reader.end().outcome != DetectionOutcome::Finished)
        return giveUp(one, place.recording);
    take(place, tools.values.valuesOfPart(one.recording, *detection, part));
}

void PromisingSearch::take(const PartPlace& place, const KeptValues& values) {
    PartedRecording& one = *parted[std::size_t(place.recording)];
    bool isGivenUp = false;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (one.isGivenUp)
            return;
        if (one.isUnchanged() && one.take(place.part, values)) {
            const AroundPart around = decideAround(one, place.part, tools.options);
            for (const int part : around.wanted)
                queue.prefer({place.recording, part});
            tell(one, around);
        } else {
            isGivenUp = true;
        }
    }
    if (isGivenUp)
        return giveUp(one, place.recording);
    keep(values);
    showProgress();
}

/// What keeps one from being written does so with the others, and is told once.
void PromisingSearch::keep(const KeptValues& values) {
    const std::lock_guard<std::mutex> lock(keeping);
    isKept = isKept && tools.values.keepOwnPart(values);
}

/// It is searched in order.
void PromisingSearch::giveUp(PartedRecording& one, int index) {
    const std::lock_guard<std::mutex> lock(mutex);
    one.isGivenUp = true;
    queue.removeAll(index);
}

/// Each once, though it may have become longer meanwhile.
void PromisingSearch::tell(PartedRecording& one, const AroundPart& around) {
    const auto place = std::find(parted.begin(), parted.end(), &one) - parted.begin();
    QVector<DetectedClip>& before = told[std::size_t(place)];
    for (const DetectedClip& clip : around.clips) {
        const bool isTold = std::any_of(before.cbegin(), before.cend(),
                                        [&](const auto& other) { return overlaps(clip, other); });
        if (isTold)
            continue;
        before.append(clip);
        ++toldClips;
        const QByteArray line = tools.format.provisional({one.recording, {}, clip}, looked());
        if (line.isEmpty())
            continue;
        tools.messages.makeRoom();
        tools.provisional.write(line);
    }
}

/// Under the mutex: the share of all recordings, 0 to 1.
double PromisingSearch::looked() const {
    double seconds = 0.0;
    for (const PartedRecording* one : parted)
        seconds += one->isGivenUp ? 0.0 : one->share() * one->scouted.seconds;
    return length > 0.0 ? seconds / length : 0.0;
}

void PromisingSearch::showProgress() {
    const std::lock_guard<std::mutex> lock(mutex);
    Progress progress{looked(), toldClips, 0.0};
    progress.isOfParts = true;
    tools.messages.showProgress(progress);
}

std::vector<MeasuredAhead> PromisingSearch::take() {
    std::vector<MeasuredAhead> all;
    for (std::size_t i = 0; i < recordings.size(); ++i)
        all.push_back(aheadOf(i));
    return all;
}

MeasuredAhead PromisingSearch::aheadOf(std::size_t place) {
    MeasuredAhead ahead;
    ahead.seconds = lengths[place];
    const std::unique_ptr<PartedRecording> one = std::move(ofPlace[place]);
    if (!one || one->isGivenUp)
        return ahead;
    if (!one->isWhole()) {
        ahead.isPartly = isOver();
        ahead.isKept = isKept;
        ahead.runs = one->runs();
        ahead.share = one->share();
        return ahead;
    }
    JoinedParts whole = one->whole();
    if (!whole.values)
        return ahead;
    ahead.whole.emplace();
    ahead.whole->values = std::move(whole.values);
    ahead.whole->areJoined = true;
    ahead.parts = one->count();
    return ahead;
}
