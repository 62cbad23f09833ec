// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "aroundpart.h"
#include "clipformat.h"
#include "measuredahead.h"
#include "partqueue.h"
#include "partreader.h"
#include "searchbudget.h"

#include <memory>
#include <mutex>
#include <vector>

/// What a search by likelihood works with. All must outlive it.
struct PromisingTools {
    const ScanOptions& options;
    const ValuesStore& values;
    Messages& messages;
    const ClipFormat& format;
    OrderedOutput::Section& provisional; ///< where clips are told of that may become others
    SearchBudget& budget;
    std::function<bool()> isEnding; ///< of the scan
};

/// Measures the parts of all recordings of a call, the most promising first, on all cores, until
/// all are, the budget is spent or the scan ends.
///
/// Recordings that cannot be measured in parts, or that have too few of them, are left to who
/// searches them in order.
class PromisingSearch {
public:
    PromisingSearch(std::vector<Recording>& recordings, PromisingTools tools);
    ~PromisingSearch();

    /// Once.
    void run();

    /// What is known of each recording, in their order; once.
    std::vector<MeasuredAhead> take();

private:
    /// What a worker does next.
    struct Task {
        PartPlace place;
        int threads = 1;
    };

    int workers() const;
    bool isOver() const;
    void scoutAll();
    void scoutOne(std::size_t place);
    void takeKeptParts(PartedRecording& parted);
    void arrange();
    void work();
    std::optional<Task> next();
    int threadsFor(int left) const;
    void measure(PartReader& reader, const Task& task);
    void take(const PartPlace& place, const KeptValues& values);
    void keep(const KeptValues& values);
    void giveUp(PartedRecording& parted, int index);
    void tell(PartedRecording& parted, const AroundPart& around);
    double looked() const;
    void showProgress();
    MeasuredAhead aheadOf(std::size_t place);

    std::vector<Recording>& recordings;
    PromisingTools tools;
    std::vector<double> lengths;                           ///< seconds, of the recordings
    std::vector<std::unique_ptr<PartedRecording>> ofPlace; ///< null: not in parts
    std::vector<PartedRecording*> parted;                  ///< in the queue's order

    std::mutex keeping;
    bool isKept = true; ///< what was measured, where that is wanted

    std::mutex mutex; ///< around all that follows, and what parts have become
    PartQueue queue;
    std::vector<QVector<DetectedClip>> told; ///< as `parted`
    int toldClips = 0;
    double length = 0.0; ///< seconds, of all recordings
};
