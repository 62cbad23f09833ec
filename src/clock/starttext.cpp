// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "starttext.h"

#include <QStringList>

namespace {

QString byText(StartSource source) {
    switch (source) {
    case StartSource::Given:
        return QStringLiteral("as given");
    case StartSource::Name:
        return QStringLiteral("by its name");
    case StartSource::Container:
        return QStringLiteral("by its container");
    case StartSource::FileTime:
        return QStringLiteral("by its file's time less its length");
    case StartSource::Follows:
        return QStringLiteral("behind the recording before it");
    case StartSource::Unknown:
        break;
    }
    return {};
}

QString zoneText(const QDateTime& time) {
    const QString text = isoText(time);
    return text.endsWith('Z') ? QStringLiteral("UTC") : text.right(6);
}

} // namespace

QString startText(const RecordingStart& start) {
    QStringList parts;
    if (start.isKnown())
        parts +=
            QStringLiteral("began %1 %2, %3 (%4)")
                .arg(start.time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
                     zoneText(start.time), byText(start.source), certaintyWord(start.certainty));
    else
        parts += QStringLiteral("it is not known when it began");
    for (const StartDoubt doubt : start.doubts)
        parts += doubtText(doubt);
    return parts.join(QStringLiteral("; "));
}

QString doubtText(StartDoubt doubt) {
    switch (doubt) {
    case StartDoubt::AmbiguousDay:
        return QStringLiteral("the day in its name can be read in several ways, which only "
                              "--start-pattern can tell");
    case StartDoubt::DayWithoutTime:
        return QStringLiteral("its name has a day, but no time");
    case StartDoubt::HourMissing:
        return QStringLiteral("the clock was put forward over that hour, taken as if it had not");
    case StartDoubt::HourTwice:
        return QStringLiteral("that hour came twice, the first one was taken");
    case StartDoubt::NoSeconds:
        return QStringLiteral("its name has no seconds");
    case StartDoubt::PatternUnfit:
        return QStringLiteral("its name is not as --start-pattern says");
    case StartDoubt::EpochSupposed:
        return QStringLiteral("if the number in its name counts seconds since 1970");
    case StartDoubt::Ahead:
        return QStringLiteral("this machine's clock is more than a year from it");
    case StartDoubt::ClockNotSet:
        return QStringLiteral("its clock was never set");
    case StartDoubt::UnlikelyTime:
        return QStringLiteral("a time was found that can be none of a recording");
    case StartDoubt::LengthUnknown:
        return QStringLiteral("its length is not known beforehand");
    case StartDoubt::ZoneSupposed:
        return QStringLiteral("if its clock is that of UTC");
    }
    return {};
}

QString isoText(const QDateTime& time) {
    if (time.offsetFromUtc() == 0)
        return time.toUTC().toString(Qt::ISODateWithMs);
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODateWithMs);
}
