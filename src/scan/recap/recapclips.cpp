// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recapclips.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace {

constexpr int largestSide = 4096;

int even(double length) {
    return std::clamp(2 * int(std::lround(length / 2.0)), 2, largestSide);
}

/// The size of a recording's pictures on a screen.
QSize shownSize(const StreamDescription& stream) {
    const Ratio& pixel = stream.pixelAspect;
    const double shape = pixel.numerator > 0 ? double(pixel.numerator) / pixel.denominator : 1.0;
    const double width = std::max(1, stream.size.width()) * shape;
    const double height = std::max(1, stream.size.height());
    const double shrinking = std::min(1.0, largestSide / std::max(width, height));
    return {even(width * shrinking), even(height * shrinking)};
}

using Rate = std::pair<int, int>; ///< numerator and denominator

Rate rateOf(const StreamDescription& stream) {
    const Ratio& rate = stream.frameRate;
    if (rate.numerator <= 0)
        return {25, 1};
    const double pictures = double(rate.numerator) / rate.denominator;
    if (pictures < 1.0)
        return {1, 1};
    return pictures > 60.0 ? Rate(60, 1) : Rate(rate.numerator, rate.denominator);
}

/// The one that is there most often; of those that are as often the greatest.
template<class Value>
Value mostFrequent(const std::map<Value, int>& counts) {
    const auto isLess = [](const auto& left, const auto& right) {
        return left.second < right.second ||
               (left.second == right.second && left.first < right.first);
    };
    return std::max_element(counts.begin(), counts.end(), isLess)->first;
}

} // namespace

void RecapClips::add(const ClipLine& line) {
    QVector<ClipPart> parts = line.parts;
    if (!line.goesOn())
        parts = {{&line.recording, line.played, line.clip.start, line.clip.end}};
    const std::lock_guard<std::mutex> lock(mutex);
    for (const ClipPart& part : parts) {
        FilmStretch stretch;
        stretch.fileName = part.recording->path;
        stretch.start = part.start;
        stretch.end = part.end;
        stretch.frameRate = line.frameRate;
        stretch.begin = part.recording->start.wallClockAsOf(part.start);
        clips.push_back(
            {part.recording, line.recording.place, line.clip.index, stretch, part.played.stream});
    }
}

std::vector<RecapClip> RecapClips::inOrder(ClipCalls calls) const {
    std::vector<RecapClip> all = clips;
    const auto isBefore = [](const RecapClip& left, const RecapClip& right) {
        return std::tie(left.place, left.number) < std::tie(right.place, right.number);
    };
    if (calls != ClipCalls::InOrder)
        std::stable_sort(all.begin(), all.end(), isBefore);
    return all;
}

Film filmOf(const std::vector<RecapClip>& clips, const RecapOptions& options) {
    std::map<std::tuple<qint64, int, int>, int> sizes; // by their areas
    std::map<Rate, int> rates;
    for (const RecapClip& clip : clips) {
        const QSize size = shownSize(clip.stream);
        ++sizes[{qint64(size.width()) * size.height(), size.width(), size.height()}];
        ++rates[rateOf(clip.stream)];
    }
    Film film;
    film.container = options.container;
    film.speed = options.speed;
    film.megabits = options.megabits;
    if (clips.empty())
        return film;
    const auto [area, width, height] = mostFrequent(sizes);
    const Rate rate = mostFrequent(rates);
    film.size = {width, height};
    film.rate = QStringLiteral("%1/%2").arg(rate.first).arg(rate.second);
    return film;
}
