// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "segmentation.h"

#include <algorithm>
#include <utility>

ClipSegmenter::ClipSegmenter(const SegmentationOptions& options, double origin, double firstTime,
                             ClipPicturePointer firstPicture)
    : options(options)
    , origin(origin)
    , vote(series, options.minimum, options.motionThreshold, options.fewestCompared)
    , candidates(options.minimum)
    , previousPicture(std::move(firstPicture))
    , previousTime(firstTime) {}

std::optional<DetectedClip> ClipSegmenter::addFrame(MotionScore motion, double time,
                                                    ClipPicturePointer picture) {
    std::optional<DetectedClip> closed;
    if (inClip)
        closed = continueClip(motion, time, picture);
    else if (time > notBefore && vote.isWon())
        openClip(time);

    series.scores.append(motion);
    series.times.append(time);
    vote.advance();
    // The picture before this frame goes with this frame's value: a clip that opens looks at the
    // value of what moved and shows the picture just before the move.
    candidates.add(motion, previousTime, std::move(previousPicture), time);
    previousPicture = std::move(picture);
    previousTime = time;
    return closed;
}

std::optional<DetectedClip> ClipSegmenter::finish() {
    if (!inClip)
        return std::nullopt;
    return closeClip(previousTime);
}

double ClipSegmenter::earliestStart() const {
    return (inClip ? clipStart : startOf(previousTime)) - origin;
}

void ClipSegmenter::forgetOld() {
    const int count = vote.forgetOld();
    series.scores.remove(0, count);
    series.times.remove(0, count);
}

std::optional<DetectedClip> ClipSegmenter::continueClip(MotionScore motion, double time,
                                                        const ClipPicturePointer& picture) {
    if (!options.motionThreshold.isExceededBy(motion)) {
        if (time - lastMotionTime > options.postrecord)
            return closeClip(time);
        return std::nullopt;
    }
    lastMotionTime = time;
    if (motion.value > bestMotion.value) {
        bestMotion = motion;
        bestPicture = picture;
        snapshotTime = time;
    }
    return std::nullopt;
}

/// Where a clip starts that opens at `time`.
///
/// The clamp acts on the stream's own time, before the first frame's is subtracted: where a
/// recording does not start at 0, an early clip's start can be negative.
double ClipSegmenter::startOf(double time) const {
    return std::max(0.0, time - options.minimum - options.prerecord);
}

void ClipSegmenter::openClip(double time) {
    // The vote needs entries, and every entry came with a candidate.
    const SnapshotCandidates::Candidate& best = *candidates.best();
    bestMotion = best.motion;
    bestPicture = best.picture;
    snapshotTime = best.time;
    clipStart = startOf(time);
    lastMotionTime = time;
    notBefore = clipStart;
    inClip = true;
}

DetectedClip ClipSegmenter::closeClip(double time) {
    DetectedClip clip{clipIndex,     bestPicture->snapshot(), clipStart - origin,
                      time - origin, snapshotTime - origin,   bestMotion};
    clip.snapshotFlaw = bestPicture->flaw();
    bestPicture.reset();
    notBefore = time;
    ++clipIndex;
    inClip = false;
    return clip;
}
