// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionreport.h"

#include <algorithm>

void ReportedRecording::add(double time, MotionScore motion) {
    seconds = time;
    strip.add(time, shownMotion(motion));
    histogram.add(time, shownMotion(motion));
}

QByteArray MotionReport::unit() const {
    return detector == Detector::Cells ? QByteArray(" %") : QByteArray();
}

bool MotionReport::isQuick() const {
    return std::any_of(recordings.cbegin(), recordings.cend(),
                       [](const ReportedRecording& one) { return one.isQuick; });
}

bool MotionReport::isComplete() const {
    return std::all_of(recordings.cbegin(), recordings.cend(), [](const ReportedRecording& one) {
        return one.state == SearchState::Done || one.state == SearchState::Failed;
    });
}
