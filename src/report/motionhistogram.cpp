// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionhistogram.h"

#include <algorithm>
#include <cmath>

namespace {

/// Digits that are exact where they are written, as a sum of steps would not be.
void appendSteps(QVector<double>& steps, int first, int last, int stride, double perUnit) {
    for (int i = first; i < last; i += stride)
        steps.append(i / perUnit);
}

QVector<double> makeSteps(Detector detector) {
    QVector<double> steps;
    appendSteps(steps, 0, 100, 1, 1000.0);
    appendSteps(steps, 100, 1000, 5, 1000.0);
    appendSteps(steps, 100, 1001, 5, 100.0);
    if (detector == Detector::Cells)
        appendSteps(steps, 105, 1001, 5, 10.0);
    return steps;
}

/// The step at or below a value, compared as the scanner compares it with its threshold.
int stepOf(float value, const QVector<double>& steps) {
    const auto next =
        std::upper_bound(steps.cbegin(), steps.cend(), value,
                         [](float left, double right) { return left < float(right); });
    return std::max(int(next - steps.cbegin()) - 1, 0);
}

} // namespace

const QVector<double>& thresholdSteps(Detector detector) {
    static const QVector<double> mean = makeSteps(Detector::Mean);
    static const QVector<double> cells = makeSteps(Detector::Cells);
    return detector == Detector::Cells ? cells : mean;
}

void MotionHistogram::add(double time, float value) {
    if (!std::isfinite(time) || time <= last)
        return;
    const QVector<double>& steps = thresholdSteps(detector);
    bins.resize(steps.size());
    bins[stepOf(value, steps)] += time - last;
    last = time;
}

void MotionHistogram::add(const MotionHistogram& other) {
    bins.resize(std::max(bins.size(), other.bins.size()));
    for (int i = 0; i < other.bins.size(); ++i)
        bins[i] += other.bins[i];
}
