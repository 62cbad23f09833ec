// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "areaverdicts.h"

#include "clip.h"
#include "video.h"

#include <algorithm>

namespace {

QPair<double, double> spanOf(const Clip& clip) {
    return {clip.start, clip.end};
}

} // namespace

void AreaVerdicts::begin() {
    asked.clear();
    unmapped.clear();
    foreign.clear();
}

void AreaVerdicts::take(const AreaAnswer& answer) {
    asked.insert(answer.job);
    if (!answer.hasMaps)
        unmapped.insert(answer.job);
    else if (!answer.isSameSize)
        foreign.insert(answer.job);
    Spans found;
    for (int i = 0; i < answer.isMoving.size(); ++i)
        found[{answer.clips[i].start, answer.clips[i].end}] = answer.isMoving[i];
    verdicts[answer.job] = found;
}

QVector<ClipSpan> AreaVerdicts::questions(const Video* job, const QList<const Clip*>& clips) const {
    const bool isKnown = isUnmapped(job) || isForeign(job) ||
                         std::all_of(clips.begin(), clips.end(),
                                     [this](const Clip* clip) { return isJudged(*clip); });
    QVector<ClipSpan> spans;
    if (asked.contains(job) && isKnown)
        return spans;
    for (const Clip* clip : clips)
        spans.append({clip->start, clip->end});
    return spans;
}

bool AreaVerdicts::isJudged(const Clip& clip) const {
    return verdicts.value(clip.video).contains(spanOf(clip));
}

bool AreaVerdicts::mayMove(const Clip& clip) const {
    const auto job = verdicts.find(clip.video);
    return job == verdicts.end() || job->value(spanOf(clip), true);
}
