// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sequencescan.h"

#include "cellseries.h"
#include "interrupt.h"
#include "missingpicture.h"
#include "quicklook.h"
#include "recordingclock.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double longestCompared = 1.0; // seconds between two pictures of two recordings
constexpr double rounding = 1e-6;       // of differences of times

/// As it was measured. What is watched by nobody is no file, and would wait for its writer.
bool canBeReadAgain(Recording& recording) {
    return recording.watched && recording.watched->flaw().isEmpty();
}

} // namespace

/// A picture of a recording that lives as long as it.
class SequenceScan::Picture : public ClipPicture {
public:
    Picture(MemberPointer member, int index)
        : member(std::move(member))
        , picture(this->member->scan->pictureOf(index)) {}

    QImage snapshot() override { return picture->snapshot(); }
    QString flaw() const override { return picture->flaw(); }
    void shrink() override { picture->shrink(); }

private:
    MemberPointer member;
    ClipPicturePointer picture;
};

SequenceScan::SequenceScan(const ScanOptions& options, ScanOutputs& outputs, Concluded concluded)
    : options(options)
    , outputs(outputs)
    , concluded(std::move(concluded))
    , segmentation(options.detection.segmentation) {
    if (options.mergeGap)
        merger.emplace(*options.mergeGap);
    if (options.selection.longest)
        cutter.emplace(*options.selection.longest);
}

void SequenceScan::append(std::unique_ptr<RecordingScan> scan, const SequenceFile& file,
                          const Continuation& how) {
    const auto member = std::make_shared<Member>();
    member->scan = std::move(scan);
    member->file = places.count();
    places.append(file, how);
    follow(member->scan->subject(), member->file);
    const Measurement& measured = member->scan->measured();
    if (member->scan->isOfKeyFrames())
        outputs.messages.warn(
            member->scan->subject().video,
            quickNote(measured, segmentation.minimum, options.detection.detector));
    member->scan->findings().opened(measured.stream);
    arePicturesLate = options.selection.isThere() && member->scan->areSnapshotsWanted();
    if (arePicturesLate)
        member->scan->findings().setPictures(
            [this, own = places.offsetOf(member->file)](double seconds) {
                return pictureAt(own + seconds);
            });
    if (member->file == 0)
        begin(member);
    else
        goOn(member);
    member->scan->forgetMaps();
    concludeEarly();
}

/// What goes on has a start as the first one has, where it has none that is known, or that of the
/// whole that both were cut out of.
void SequenceScan::follow(Recording& recording, int file) {
    const bool isOfTheWhole =
        recording.start.source == StartSource::Container && recording.start.time == start.time;
    if (file == 0)
        start = recording.start;
    else if (start.isKnown() && (!recording.start.isKnown() || isOfTheWhole))
        setStart(recording,
                 {start.timeAt(places.offsetOf(file)), StartSource::Follows, start.certainty, {}});
}

void SequenceScan::begin(const MemberPointer& first) {
    const Measurement& measured = first->scan->measured();
    members.push_back(first);
    if (first->scan->isOfKeyFrames())
        segmentation.fewestCompared = fewestQuickComparisons;
    segmenter.emplace(segmentation, measured.firstTime, measured.firstTime, pictureOf(first, 0));
    if (options.detection.detector == Detector::Cells)
        scores.emplace(options.detection.measure.region, measured.stream.description.size,
                       options.detection.cells);
    decide(first, scores ? cellsOf(*first, {}) : measured.series);
}

void SequenceScan::goOn(const MemberPointer& member) {
    const Seam seam = seamBefore(*member).value_or(Seam());
    members.push_back(member);
    const double time = places.placed(member->file).begin;
    if (scores && !seam.maps.empty())
        motion = scores->add(time, seam.maps.front());
    else if (!scores)
        motion = seam.mean.value_or(motion);
    add(motion, time, pictureOf(member, 0));
    decide(member, scores ? cellsOf(*member, seam.maps) : meansOf(*member));
}

/// Nothing where the two are not compared.
std::optional<Seam> SequenceScan::seamBefore(const Member& member) const {
    const PlacedFile& here = places.placed(member.file);
    const PlacedFile& there = places.placed(member.file - 1);
    const bool isNear = here.begin - there.last <= longestCompared + rounding;
    if (!isNear || member.scan->isOfKeyFrames() || isEnding())
        return std::nullopt;
    const RecordingScan& before = *members.back()->scan;
    if (!canBeReadAgain(before.subject()) || !canBeReadAgain(member.scan->subject()))
        return std::nullopt;
    return seamBetween({before.subject().path, before.measured(), there.shift},
                       {member.scan->subject().path, member.scan->measured(), here.shift},
                       options.detection, isEnding);
}

/// Pictures that are not compared have the value before them.
MotionSeries SequenceScan::meansOf(const Member& member) const {
    MotionSeries series = member.scan->measured().series;
    for (double& time : series.times)
        time += places.placed(member.file).shift;
    const auto held = int(skippedFrom(1, options.detection.measure.skip));
    for (int i = 0; i < std::min(held, series.scores.size()); ++i)
        series.scores[i] = motion;
    return series;
}

/// `begun`: the maps of its first pictures, where they are not those of the recording alone.
MotionSeries SequenceScan::cellsOf(const Member& member, const std::vector<CellMap>& begun) {
    const Measurement& measured = member.scan->measured();
    QVector<double> times = measured.series.times;
    for (double& time : times)
        time += places.placed(member.file).shift;
    MotionSeries series;
    const int known = std::min(int(begun.size()), times.size() + 1);
    for (int i = 1; i < known; ++i) {
        series.scores.append(scores->add(times[i - 1], begun[std::size_t(i)]));
        series.times.append(times[i - 1]);
    }
    addSeries(measured.maps, times, *scores, options.detection.threads, series);
    return series;
}

void SequenceScan::decide(const MemberPointer& member, const MotionSeries& series) {
    const Measurement& measured = member->scan->measured();
    RecordingOutput& findings = member->scan->findings();
    for (int i = 0; i < series.times.size(); ++i) {
        add(series.scores[i], series.times[i], pictureOf(member, i + 1));
        findings.frameProcessed({measured.firstNumber + i + 1,
                                 measured.series.times[i] - measured.stream.origin,
                                 series.scores[i], 0.0});
    }
}

void SequenceScan::add(MotionScore score, double time, ClipPicturePointer picture) {
    motion = score;
    if (cutter)
        cutter->addPicture(time - places.placed(0).begin, score);
    take(segmenter->addFrame(score, time, std::move(picture)));
    if (merger)
        pass(merger->passBy(segmenter->earliestStart()));
}

void SequenceScan::take(const std::optional<DetectedClip>& clip) {
    if (clip)
        pass(merger ? merger->add(*clip) : clip);
}

void SequenceScan::pass(const std::optional<DetectedClip>& clip) {
    if (!clip)
        return;
    for (const DetectedClip& piece : cutter ? cutter->cut(*clip) : QVector{*clip})
        tell(piece);
}

/// Tells the recordings in which it lies, as far as they are not concluded: where times run
/// backwards, a clip can begin in one that is.
void SequenceScan::tell(const DetectedClip& clip) {
    QVector<LineStretch> stretches = places.stretchesOf(clip.start, clip.end);
    while (stretches.size() > 1 && isConcluded(stretches.first().file))
        stretches.removeFirst();
    const int own = std::max(stretches.first().file, members.front()->file);
    const double from = places.offsetOf(own);
    DetectedClip found = clip;
    found.start -= from;
    found.end -= from;
    found.snapshotTime -= from;
    if (own != stretches.first().file)
        stretches = {{own, found.start, found.end}};
    QVector<ClipPart> parts;
    for (const LineStretch& stretch : stretches) {
        RecordingScan& scan = *memberAt(stretch.file).scan;
        parts.append({&scan.subject(), scan.findings().playedAs(), stretch.start, stretch.end,
                      places.offsetOf(stretch.file) - from});
        if (stretch.file != own)
            scan.findings().clipGoesOn(stretch.start, stretch.end);
    }
    memberAt(own).scan->findings().continuedClipFound(found, parts);
}

ClipPicturePointer SequenceScan::pictureOf(const MemberPointer& member, int index) const {
    if (arePicturesLate || !member->scan->areSnapshotsWanted())
        return noPicture();
    return std::make_shared<Picture>(member, index);
}

/// The picture that is shown then: seconds from the line's first one.
ClipPicturePointer SequenceScan::pictureAt(double seconds) const {
    const LineStretch place = places.stretchesOf(seconds, seconds).first();
    RecordingScan& scan = *memberAt(std::max(place.file, members.front()->file)).scan;
    const Measurement& measured = scan.measured();
    const QVector<double>& times = measured.series.times;
    const double time = measured.firstTime + place.start - rounding;
    if (measured.firstTime >= time)
        return scan.pictureOf(0);
    const auto next = std::lower_bound(times.begin(), times.end(), time);
    return scan.pictureOf(std::min(int(next - times.begin()) + 1, times.size()));
}

SequenceScan::Member& SequenceScan::memberAt(int file) const {
    return *members[std::size_t(file - members.front()->file)];
}

/// No clip that is still to be told of starts before this: seconds from the line's first picture.
double SequenceScan::earliestStart() const {
    const double next = segmenter->earliestStart();
    const auto waiting = merger ? merger->waitingStart() : std::nullopt;
    return waiting ? std::min(*waiting, next) : next;
}

/// The last one is needed to compare the next one with. Nothing of what is decided on is kept
/// longer than that, however many recordings go on in one another.
void SequenceScan::concludeEarly() {
    segmenter->forgetOld();
    if (cutter)
        cutter->forgetBefore(earliestStart());
    const double earliest = earliestStart() + places.placed(0).begin;
    while (members.size() > 1 && earliest >= places.placed(members.front()->file).end)
        conclude();
}

void SequenceScan::conclude() {
    const MemberPointer member = members.front();
    const ExitStatus end = member->scan->conclude();
    concluded(member->scan->subject(), end);
    members.pop_front();
}

void SequenceScan::finish() {
    take(segmenter->finish());
    if (merger)
        pass(merger->finish());
    while (!members.empty())
        conclude();
}
