// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionstrip.h"

#include <algorithm>
#include <cmath>

namespace {

// Where columns are joined the greater one counts.
constexpr float noPicture = -2.0F;
constexpr float notLookedAt = -1.0F;

} // namespace

void MotionStrip::add(double time, float value) {
    if (!std::isfinite(time))
        return;
    growTo(time, noPicture);
    const int column = int(std::max(time, 0.0) / seconds);
    maxima[column] = std::max(maxima[column], value);
}

void MotionStrip::leaveOut(double time) {
    if (std::isfinite(time) && time > 0.0)
        growTo(time, notLookedAt);
}

/// New columns have that value, up to the one in which `time` lies.
void MotionStrip::growTo(double time, float value) {
    while (time / seconds >= mostColumns)
        joinNeighbours();
    const int column = int(std::max(time, 0.0) / seconds);
    while (maxima.size() <= column)
        maxima.append(value);
}

QVector<float> MotionStrip::columns() const {
    QVector<float> columns = maxima;
    for (int i = columns.size() - 2; i >= 0; --i) {
        if (columns[i] == noPicture)
            columns[i] = columns[i + 1];
    }
    return columns;
}

float MotionStrip::greatest() const {
    const auto found = std::max_element(maxima.cbegin(), maxima.cend());
    return found == maxima.cend() ? 0.0F : std::max(*found, 0.0F);
}

void MotionStrip::joinNeighbours() {
    seconds *= 2.0;
    const int joined = (maxima.size() + 1) / 2;
    for (int i = 0; i < joined; ++i) {
        const float second = 2 * i + 1 < maxima.size() ? maxima[2 * i + 1] : noPicture;
        maxima[i] = std::max(maxima[2 * i], second);
    }
    maxima.resize(joined);
}
