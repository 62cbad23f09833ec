// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partscan.h"

#include "partdetection.h"
#include "scanprogress.h"

namespace {

bool isChanged(const Recording& recording) {
    using Watched = WatchedRecording;
    return recording.stamp &&
           Watched(*recording.stamp, Watched::Measured::Now).state() != Watched::State::Same;
}

ExitStatus measure(Recording& recording, const ScanOptions& options, ScanOutputs& outputs) {
    ScanProgress progress(recording, outputs);
    PartDetection detection(options.detection, *options.part, progress);
    const MeasuringEnd end = detection.run(recording.path);
    if (isChanged(recording)) {
        outputs.messages.complain(recording.video,
                                  QStringLiteral("it was changed while it was measured"));
        return SomeFailed;
    }
    const bool isKept = outputs.values.keepPart(recording, detection, *options.part, end);
    if (!end.error.isEmpty())
        outputs.messages.complain(recording.video, end.error);
    else if (!recording.stamp && end.outcome == DetectionOutcome::Finished)
        outputs.messages.complain(recording.video,
                                  QStringLiteral("a part of what is no file cannot be kept"));
    if (!isKept || !recording.stamp)
        return SomeFailed;
    if (end.outcome == DetectionOutcome::Finished)
        return AllDone;
    return end.isLasting ? SomeUnreadable : SomeFailed;
}

} // namespace

ExitStatus scanPart(Recording& recording, const ScanOptions& options, ScanOutputs& outputs) {
    const ValuesStore::Found found = outputs.values.findPart(recording, *options.part);
    ExitStatus end = AllDone;
    if (!found.values)
        end = measure(recording, options, outputs);
    else if (found.values->outcome != DetectionOutcome::Finished) {
        outputs.messages.complain(recording.video, found.values->reason);
        end = SomeUnreadable;
    }
    outputs.totals.finish(recording);
    if (end == AllDone)
        outputs.messages.note(QStringLiteral("%1: part %2 of %3 is measured")
                                  .arg(recording.video, QString::number(options.part->index),
                                       QString::number(options.part->count)));
    return end;
}
