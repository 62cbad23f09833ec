// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionreport.h"

#include "clocktext.h"

#include <algorithm>

QDateTime ReportedRecording::clockAt(double time) const {
    return start.time.addMSecs(qint64(sensibleTime(time) * 1000.0));
}

QString ReportedRecording::timeText(double time) const {
    if (!start.isKnown())
        return elapsedText(time);
    return clockAt(time).toString(QStringLiteral("HH:mm:ss"));
}

void ReportedRecording::add(double time, MotionScore motion) {
    seconds = time;
    strip.add(time, shownMotion(motion));
    histogram.add(time, shownMotion(motion));
}

void ReportedRecording::leaveOut(double time) {
    if (!(time > seconds))
        return;
    seconds = time;
    strip.leaveOut(time);
    histogram.leaveOut(time);
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
