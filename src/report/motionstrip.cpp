// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionstrip.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float noPicture = -1.0F;

} // namespace

void MotionStrip::add(double time, float value) {
    if (!std::isfinite(time))
        return;
    while (time / seconds >= mostColumns)
        joinNeighbours();
    const int column = int(std::max(time, 0.0) / seconds);
    while (maxima.size() <= column)
        maxima.append(noPicture);
    maxima[column] = std::max(maxima[column], value);
}

QVector<float> MotionStrip::columns() const {
    QVector<float> columns = maxima;
    for (int i = columns.size() - 2; i >= 0; --i) {
        if (columns[i] < 0.0F)
            columns[i] = columns[i + 1];
    }
    return columns;
}

float MotionStrip::greatest() const {
    const auto found = std::max_element(maxima.cbegin(), maxima.cend());
    return found == maxima.cend() ? 0.0F : *found;
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
