// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipcutter.h"

#include <algorithm>
#include <cmath>

namespace {

/// Seconds. Differences of times that are told apart in milliseconds are off by much less.
constexpr double rounding = 1e-6;

} // namespace

void ClipCutter::addPicture(double time, MotionScore motion) {
    isForward = isForward && (pictures.times.isEmpty() || time >= pictures.times.last());
    pictures.times.append(time);
    pictures.scores.append(motion);
}

void ClipCutter::forgetBefore(double time) {
    if (!isForward)
        return;
    const auto first = std::lower_bound(pictures.times.begin(), pictures.times.end(), time);
    const auto count = int(first - pictures.times.begin());
    pictures.times.remove(0, count);
    pictures.scores.remove(0, count);
}

QVector<DetectedClip> ClipCutter::cut(const DetectedClip& clip) {
    const bool isLong = clip.end - clip.start > length + rounding;
    QVector<DetectedClip> cut = isLong ? piecesOf(clip).values().toVector() : QVector{clip};
    for (DetectedClip& piece : cut)
        piece.index = next++;
    return cut;
}

int ClipCutter::firstPictureOf(const DetectedClip& clip) const {
    const QVector<double>& times = pictures.times;
    if (!isForward)
        return 0;
    return int(std::lower_bound(times.begin(), times.end(), clip.start) - times.begin());
}

ClipCutter::Pieces ClipCutter::piecesOf(const DetectedClip& clip) const {
    const double last = std::ceil((clip.end - clip.start) / length - rounding) - 1.0;
    Pieces pieces;
    for (int i = firstPictureOf(clip); i < pictures.times.size(); ++i) {
        const double time = pictures.times[i];
        if (isForward && time >= clip.end)
            break;
        if (time < clip.start || time >= clip.end)
            continue;
        const double place = std::min(std::floor((time - clip.start) / length), last);
        const double start = clip.start + place * length;
        const double end = place < last ? start + length : clip.end;
        const MotionScore motion = pictures.scores[i];
        const auto piece = pieces.find(qint64(place));
        if (piece == pieces.end() || motion.value > piece->strongestMotion.value)
            pieces[qint64(place)] = {0, {}, start, end, time, motion};
    }
    return pieces;
}
