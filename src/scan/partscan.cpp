// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partscan.h"

#include "interrupt.h"
#include "partdetection.h"
#include "watchedrecording.h"

#include <QFileInfo>

namespace {

bool isChanged(const ValuesStore::Found& found) {
    using Watched = WatchedRecording;
    return found.stamp &&
           Watched(*found.stamp, Watched::Measured::Now).state() != Watched::State::Same;
}

} // namespace

PartScan::PartScan(int index, const ScanOptions& options, const ValuesStore& values,
                   Messages& messages, Totals& totals)
    : index(index)
    , options(options)
    , values(values)
    , messages(messages)
    , totals(totals) {}

ExitStatus PartScan::run() {
    const QString& video = options.videos[index];
    const ValuesStore::Found found = values.findPart(index, *options.part);
    ExitStatus end = AllDone;
    if (!found.values)
        end = measure(found);
    else if (found.values->outcome != DetectionOutcome::Finished) {
        messages.complain(video, found.values->reason);
        end = SomeUnreadable;
    }
    totals.finish(index);
    if (end == AllDone)
        messages.summarise(QStringLiteral("%1: part %2 of %3 is measured")
                               .arg(video, QString::number(options.part->index),
                                    QString::number(options.part->count)));
    return end;
}

ExitStatus PartScan::measure(const ValuesStore::Found& found) {
    const QString& video = options.videos[index];
    PartDetection detection(options.detection, *options.part, *this);
    const MeasuringEnd end = detection.run(QFileInfo(video).absoluteFilePath());
    if (isChanged(found)) {
        messages.complain(video, QStringLiteral("it was changed while it was measured"));
        return SomeFailed;
    }
    const bool isKept = values.keepPart(found, detection, *options.part, end);
    if (!end.error.isEmpty())
        messages.complain(video, end.error);
    else if (!found.stamp && end.outcome == DetectionOutcome::Finished)
        messages.complain(video, QStringLiteral("a part of what is no file cannot be kept"));
    if (!isKept || !found.stamp)
        return SomeFailed;
    if (end.outcome == DetectionOutcome::Finished)
        return AllDone;
    return end.isLasting ? SomeUnreadable : SomeFailed;
}

bool PartScan::isCancelled() {
    return isEnding();
}

void PartScan::positionChanged(qint64 bytePosition, bool) {
    totals.setPosition(index, bytePosition);
    messages.showProgress(totals.progress());
}
