// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingoutput.h"

#include "clocktext.h"
#include "damagetext.h"
#include "motionreport.h"
#include "playedrecording.h"
#include "restlesstext.h"
#include "shortestdigits.h"
#include "valuesformat.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

QString noTimesHint(bool isQuick) {
    if (isQuick)
        return QStringLiteral(", without which there is no quick look");
    return QStringLiteral("; with --fps N its pictures are taken to be N per second");
}

SearchState stateOf(DetectionOutcome outcome) {
    switch (outcome) {
    case DetectionOutcome::Finished:
        return SearchState::Done;
    case DetectionOutcome::Cancelled:
        return SearchState::CutShort;
    default:
        return SearchState::Failed;
    }
}

} // namespace

RecordingOutput::RecordingOutput(Recording& recording, const ScanOptions& options,
                                 ScanOutputs& outputs)
    : recording(recording)
    , options(options)
    , outputs(outputs)
    , clips(std::make_shared<ClipOutput>(recording, options, outputs))
    , selection(options.selection)
    , line{recording} {
    if (options.mergeGap)
        merger.emplace(*options.mergeGap);
}

void RecordingOutput::opened(const StreamFacts& stream) {
    played = playedRecording(stream);
    frameRate = stream.frameRate;
    if (stream.frameRate > 0.0)
        noteNumbering(stream.frameRate);
    clips->exports().setCodec(stream.codecName);
    hasBegunAgain = true;
    if (stream.isRegionEmpty && !std::exchange(isRegionEmpty, true))
        outputs.messages.warn(
            recording.video,
            QStringLiteral(
                "warning: the region selects nothing of its pictures, so no motion is found"));
}

void RecordingOutput::noteNumbering(double frameRate) {
    clips->exports().setFrameRate(frameRate);
    if (options.detection.times.frameRate == 0.0)
        outputs.messages.note(
            QStringLiteral("%1: no times; taken to be %2 pictures per second, as its headers say")
                .arg(recording.video, shortestDigits(frameRate)));
}

void RecordingOutput::frameProcessed(const FrameReport& frame) {
    if (hasBegunAgain && looked)
        passLooked(frame.time);
    outputs.totals.addSeconds(frame.time - line.seconds);
    if (isLookedAtNow)
        outputs.budget.add(frame.time - line.seconds);
    line.frames += hasBegunAgain ? 2 : 1; // the first one is reported with the second
    hasBegunAgain = false;
    line.seconds = frame.time;
    if (recording.trace)
        recording.trace->write(pictureText(frame.number, frame.time, frame.motion));
    show(frame.time, frame.motion);
    selection.addPicture(frame.time, frame.motion);
    if (merger)
        pass(merger->passBy(frame.earliestStart));
}

void RecordingOutput::clipFound(const DetectedClip& clip) {
    DetectedClip numbered = clip;
    numbered.index = foundClips++;
    pass(merger ? merger->add(numbered) : numbered);
}

void RecordingOutput::endClips() {
    if (merger)
        pass(merger->finish());
}

/// Does with a clip, if there is one, whatever is asked for.
void RecordingOutput::pass(const std::optional<DetectedClip>& clip) {
    if (!clip)
        return;
    seen.addClip(*clip);
    for (const DetectedClip& taken : selection.of(*clip))
        take(taken, {{&recording, played, taken.start, taken.end}});
}

void RecordingOutput::take(const DetectedClip& clip, const QVector<ClipPart>& parts) {
    ++line.clips;
    outputs.totals.addClip();
    ClipLine found{recording, played, clip, line.isQuick && !options.isRefined};
    found.parts = parts;
    found.frameRate = frameRate;
    if (outputs.choice && !outputs.choice->mayCount(found))
        return;
    if (pictureAt) {
        const ClipPicturePointer picture = pictureAt(clip.snapshotTime);
        found.clip.snapshot = picture->snapshot();
        found.clip.snapshotFlaw = picture->flaw();
    }
    write(std::move(found));
}

void RecordingOutput::write(ClipLine found) {
    if (outputs.choice) {
        outputs.choice->add(std::move(found),
                            [clips = clips](ClipLine& line) { return clips->make(line); });
        return;
    }
    clips->make(found);
    clips->print(outputs.format.clip(found));
    if (outputs.recap)
        outputs.recap->add(found);
}

void RecordingOutput::continuedClipFound(const DetectedClip& clip, const QVector<ClipPart>& parts) {
    DetectedClip numbered = clip;
    numbered.index = foundClips++;
    addStretch(parts.first().start, parts.first().end);
    for (const DetectedClip& taken : selection.of(numbered))
        take(taken, parts);
}

void RecordingOutput::clipGoesOn(double start, double end) {
    ++comeClips;
    addStretch(start, end);
}

void RecordingOutput::addStretch(double start, double end) {
    DetectedClip here;
    here.start = start;
    here.end = end;
    seen.addClip(here);
}

void RecordingOutput::beginRanges(const Measurement& measurement) {
    looked = &measurement;
    nextLooked = 0;
}

void RecordingOutput::endRanges() {
    passLooked(std::numeric_limits<double>::infinity());
}

/// The key frames before `time`.
void RecordingOutput::passLooked(double time) {
    const QVector<double>& times = looked->series.times;
    for (; nextLooked < times.size(); ++nextLooked) {
        const double at = times[nextLooked] - looked->stream.origin;
        if (at >= time)
            return;
        if (at <= line.seconds)
            continue;
        outputs.totals.addSeconds(at - line.seconds);
        line.seconds = at;
        show(at, looked->series.scores[nextLooked]);
    }
}

/// What is summed up of a picture's motion.
void RecordingOutput::show(double time, MotionScore motion) {
    seen.add(time, motion, options.detection.segmentation.motionThreshold);
    if (recording.reported)
        recording.reported->add(time, motion);
}

double RecordingOutput::searchedSeconds() const {
    return line.seconds - options.detection.range.from;
}

bool RecordingOutput::isRemarkable() const {
    return ::isRemarkable(seen, searchedSeconds());
}

QString RecordingOutput::remark() const {
    if (line.outcome != DetectionOutcome::Finished || isRegionEmpty)
        return {};
    return remarkOn(seen, searchedSeconds(), options, otherwise);
}

void RecordingOutput::tellRestless(const CellBits& restless, QSize pictures) {
    const QString text = restlessText(restless, pictures);
    outputs.messages.note(QStringLiteral("%1: %2").arg(recording.video, text));
    if (recording.reported)
        recording.reported->restless = {restless, pictures, text};
}

QString RecordingOutput::summary() const {
    QString text =
        QStringLiteral("%1: clips: %2, length: %3")
            .arg(recording.video, QString::number(line.clips), preciseClockText(line.seconds));
    if (comeClips > 0)
        text += QStringLiteral(", and clips that go on from before: %1").arg(comeClips);
    return text;
}

void RecordingOutput::leaveOut(double time) {
    line.seconds = std::max(line.seconds, time);
    if (recording.reported)
        recording.reported->leaveOut(time);
}

/// The report shows its whole length, the line tells how much of that was read.
void RecordingOutput::setLooked(double share, double length, bool isEnough) {
    line.looked = share;
    line.isPartly = isEnough;
    if (length > 0.0)
        line.seconds = share * length;
    if (recording.reported)
        recording.reported->leaveOut(length);
}

/// What was not looked at is named, so that nobody takes it for quiet; empty where all was.
QString RecordingOutput::lookedText() const {
    if (!line.looked)
        return {};
    return QStringLiteral("%1 % of it was looked at")
        .arg(QString::number(*line.looked * 100.0, 'f', 1));
}

void RecordingOutput::finish(const MeasuringEnd& end, const Damage& damage) {
    outputs.totals.finish(recording);
    const bool isRead = end.outcome == DetectionOutcome::Finished;
    const bool isHinted = end.outcome == DetectionOutcome::NoUsableTimes;
    line.outcome = end.outcome;
    line.damage = isRead ? damage : Damage();
    const QString remarked = remark();
    if (isRead && seen.clips == 0 && seen.pictures > 0)
        line.strongest = {seen.strongest, seen.strongestTime};
    const QString flaw = line.damage.isThere() ? damageText(line.damage) : QString();
    if (!end.error.isEmpty())
        outputs.messages.complain(recording.video,
                                  isHinted ? end.error + noTimesHint(line.isQuick) : end.error);
    if (!flaw.isEmpty())
        outputs.messages.warn(recording.video, flaw);
    if (line.looked)
        outputs.messages.warn(recording.video,
                              lookedText() + QStringLiteral(", clips: %1").arg(line.clips));
    if (recording.reported) {
        recording.reported->isQuick = line.isQuick;
        recording.reported->state = stateOf(end.outcome);
        QStringList reasons{flaw.isEmpty() ? end.error : flaw, lookedText()};
        reasons.removeAll(QString());
        recording.reported->reason = reasons.join(QStringLiteral("; "));
        recording.reported->remark = remarked;
    }
    clips->print(outputs.format.videoEnd(line));
    if (isRead)
        note(remarked);
}

void RecordingOutput::note(const QString& remarked) {
    QString text = summary();
    if (selection.shortOnes() > 0)
        text += QStringLiteral(", left out as too short: %1").arg(selection.shortOnes());
    if (!remarked.isEmpty())
        text += QStringLiteral("; ") + remarked;
    outputs.messages.note(text);
}
