// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "opensequences.h"

#include "filenaming.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double longestLead = 1.0; // seconds; more is no decoder's doing

// A call on recordings that each are named otherwise must not keep them all.
constexpr std::size_t mostOpen = 64;

SequenceFile fileOf(const RecordingScan& scan, const RecordingStart& start) {
    const Measurement& measured = scan.measured();
    const QVector<double>& times = measured.series.times;
    SequenceFile file;
    file.path = scan.subject().path;
    file.codec = measured.stream.codecName;
    file.size = measured.stream.description.size;
    file.start = start;
    file.hasOwnTimes = measured.stream.frameRate == 0.0;
    file.isQuick = scan.isOfKeyFrames();
    file.first = measured.firstTime;
    file.last = times.last();
    file.interval = std::max(file.last - file.first, 0.0) / times.size();
    const double lead = file.hasOwnTimes ? file.first - measured.stream.description.startTime : 0.0;
    file.begin = file.first - std::clamp(lead, 0.0, longestLead);
    return file;
}

} // namespace

OpenSequences::OpenSequences(const std::vector<Recording>& recordings, const ScanOptions& options,
                             ScanOutputs& outputs, SequenceScan::Concluded concluded)
    : options(options)
    , outputs(outputs)
    , concluded(std::move(concluded)) {
    for (const Recording& recording : recordings) {
        ++leftInFolder[folderOf(recording.path)];
        ++leftOfNaming[namingOf(recording.path)];
    }
}

void OpenSequences::add(std::unique_ptr<RecordingScan> scan, const RecordingStart& start) {
    const SequenceFile file = fileOf(*scan, start);
    const Recording& recording = scan->subject();
    Choice choice = choose(file);
    tell(recording, choice);
    if (!choice.sequence) {
        open.push_back(std::make_unique<SequenceScan>(options, outputs, concluded));
        choice.sequence = open.back().get();
    }
    choice.sequence->append(std::move(scan), file, choice.how);
    moveBack(choice.sequence);
    pass(recording);
}

/// The first one is the one that nothing has gone on in for the longest time.
void OpenSequences::moveBack(const SequenceScan* sequence) {
    const auto isIt = [sequence](const auto& one) { return one.get() == sequence; };
    open.splice(open.end(), open, std::find_if(open.begin(), open.end(), isIt));
}

void OpenSequences::leaveOut(const Recording& recording) {
    pass(recording);
}

/// Of several that end when it begins, the one that is named most like it. Two that are named as
/// much like it are two cameras that cannot be told apart.
OpenSequences::Choice OpenSequences::choose(const SequenceFile& file) const {
    Choice chosen;
    Choice refused;
    int nearest = std::numeric_limits<int>::max();
    int nearestRefused = nearest;
    for (const auto& sequence : open) {
        const SequenceFile& last = sequence->line().last();
        const Continuation how = continuationOf(last, file, *options.continuing);
        const int differing = differingNumbers(last.path, file.path);
        if (how.isThere() && chosen.other && differing == nearest) {
            chosen.sequence = nullptr;
            chosen.how.reason = QStringLiteral("%1 ends then, too, and they cannot be told apart")
                                    .arg(sequence->last().video);
        } else if (how.isThere() && (!chosen.other || differing < nearest)) {
            chosen = {sequence.get(), how, &sequence->last()};
            nearest = differing;
        } else if (!how.isThere() && differing <= nearestRefused) {
            refused = {nullptr, how, &sequence->last()};
            nearestRefused = differing;
        }
    }
    return chosen.other ? chosen : refused;
}

void OpenSequences::tell(const Recording& recording, const Choice& choice) const {
    if (!options.isVerbose || !choice.other)
        return;
    const QString verb =
        choice.sequence ? QStringLiteral("goes on from") : QStringLiteral("does not go on from");
    outputs.messages.note(QStringLiteral("%1: %2 %3: %4")
                              .arg(recording.video, verb, choice.other->video, choice.how.reason));
}

void OpenSequences::pass(const Recording& recording) {
    --leftInFolder[folderOf(recording.path)];
    --leftOfNaming[namingOf(recording.path)];
    finishLonely();
}

/// Those that nothing can go on in any more.
void OpenSequences::finishLonely() {
    for (auto next = open.begin(); next != open.end();) {
        const auto sequence = next++;
        const QString& path = (*sequence)->last().path;
        const bool isLonely =
            leftInFolder[folderOf(path)] == 0 && leftOfNaming[namingOf(path)] == 0;
        if (!isLonely && open.size() <= mostOpen)
            continue;
        (*sequence)->finish();
        open.erase(sequence);
    }
}

void OpenSequences::finish() {
    for (const auto& sequence : open)
        sequence->finish();
    open.clear();
}
