// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingstart.h"

#include <algorithm>
#include <cmath>

QDateTime RecordingStart::wallClock() const {
    return isKnown() ? QDateTime(time.date(), time.time(), Qt::UTC) : QDateTime();
}

QDateTime RecordingStart::wallClockAsOf(double seconds) const {
    if (!isKnown())
        return {};
    return wallClock().addSecs(timeAt(seconds).offsetFromUtc() - time.offsetFromUtc());
}

QDateTime RecordingStart::timeAt(double seconds) const {
    constexpr double longest = 1e11;
    const double sensible = std::isnan(seconds) ? 0.0 : std::clamp(seconds, -longest, longest);
    return isKnown() ? time.addMSecs(std::llround(sensible * 1000.0)) : QDateTime();
}

RecordingStart unknownStart(StartDoubt doubt) {
    RecordingStart start;
    start.doubts += doubt;
    return start;
}

RecordingStart lessSure(RecordingStart start, StartDoubt doubt) {
    start.doubts += doubt;
    if (start.certainty == StartCertainty::Sure)
        start.certainty = StartCertainty::Likely;
    return start;
}

QString sourceWord(StartSource source) {
    switch (source) {
    case StartSource::Given:
        return QStringLiteral("given");
    case StartSource::Name:
        return QStringLiteral("name");
    case StartSource::Container:
        return QStringLiteral("container");
    case StartSource::FileTime:
        return QStringLiteral("file time");
    case StartSource::Follows:
        return QStringLiteral("follows");
    case StartSource::Unknown:
        break;
    }
    return QStringLiteral("unknown");
}

QString certaintyWord(StartCertainty certainty) {
    switch (certainty) {
    case StartCertainty::Sure:
        return QStringLiteral("sure");
    case StartCertainty::Likely:
        return QStringLiteral("likely");
    case StartCertainty::Rough:
        return QStringLiteral("rough");
    case StartCertainty::Unknown:
        break;
    }
    return QStringLiteral("unknown");
}
