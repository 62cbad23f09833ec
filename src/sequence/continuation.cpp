// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "continuation.h"

#include "filenaming.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double mostHeldPictures = 20.0; // more than decoders hold back to put them in order
constexpr double secondsOfAnHour = 3600.0;

using Sign = Continuation::Sign;

Continuation no(const QString& reason) {
    return {Sign::None, 0.0, reason};
}

QString secondsText(double seconds) {
    return QString::number(seconds, 'f', 1) + QStringLiteral(" s");
}

QString sizeText(QSize size) {
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

/// Empty: they may be of one camera.
QString differenceOf(const SequenceFile& before, const SequenceFile& next) {
    if (folderOf(before.path) != folderOf(next.path) &&
        namingOf(before.path) != namingOf(next.path))
        return QStringLiteral("it lies in another folder and is named otherwise");
    if (before.codec != next.codec)
        return QStringLiteral("its codec is %1 and not %2")
            .arg(QString::fromLatin1(next.codec), QString::fromLatin1(before.codec));
    if (before.size != next.size)
        return QStringLiteral("its pictures are %1 and not %2")
            .arg(sizeText(next.size), sizeText(before.size));
    if (before.hasOwnTimes != next.hasOwnTimes)
        return QStringLiteral("one of them has no times of its own");
    if (before.isQuick != next.isQuick)
        return QStringLiteral("of one of them, key frames alone were looked at");
    return {};
}

/// Decoders keep some pictures at a file's end, and the first one of the next comes as late.
bool areStampsGoingOn(const SequenceFile& before, const SequenceFile& next) {
    const double step = next.first - before.last;
    const double most = mostHeldPictures * std::max(before.interval, next.interval);
    return before.hasOwnTimes && next.hasOwnTimes && step > 0.0 && step <= most;
}

bool areClocksKnown(const SequenceFile& before, const SequenceFile& next) {
    return before.start.isKnown() && next.start.isKnown();
}

bool areClocksSure(const SequenceFile& before, const SequenceFile& next) {
    const auto isSure = [](const SequenceFile& file) {
        return file.start.certainty == StartCertainty::Sure ||
               file.start.certainty == StartCertainty::Likely;
    };
    return isSure(before) && isSure(next);
}

/// Pieces that were cut out of a recording keep its time of making in their heads.
bool areCutOutOfOne(const SequenceFile& before, const SequenceFile& next) {
    return before.start.source == StartSource::Container &&
           next.start.source == StartSource::Container && before.start.time == next.start.time;
}

/// Seconds from the end of `before` to the start of `next`, by their clocks.
double gapBetween(const SequenceFile& before, const SequenceFile& next, double tolerance) {
    const double apart = double(before.start.time.msecsTo(next.start.time)) / 1000.0;
    const double gap = apart - before.length();
    // The hour that a clock shows twice was taken for the first one.
    const bool isHourTwice = next.start.doubts.contains(StartDoubt::HourTwice);
    if (isHourTwice && std::abs(gap + secondsOfAnHour) <= tolerance)
        return gap + secondsOfAnHour;
    return gap;
}

QString gapText(double gap) {
    if (gap >= 0.0)
        return QStringLiteral("it begins %1 after its end").arg(secondsText(gap));
    return QStringLiteral("it begins %1 before its end").arg(secondsText(-gap));
}

} // namespace

Continuation continuationOf(const SequenceFile& before, const SequenceFile& next,
                            double tolerance) {
    const QString difference = differenceOf(before, next);
    if (!difference.isEmpty())
        return no(difference);
    const bool areKnown = areClocksKnown(before, next);
    const double gap = areKnown ? gapBetween(before, next, tolerance) : 0.0;
    const bool isInTime = areKnown && std::abs(gap) <= tolerance;
    const bool isRefuted =
        areKnown && !isInTime && areClocksSure(before, next) && !areCutOutOfOne(before, next);
    if (!isRefuted && areStampsGoingOn(before, next))
        return {Sign::Stamps, gap, QStringLiteral("its time stamps go on")};
    if (isInTime)
        return {Sign::Clocks, gap, gapText(gap)};
    // What files tell of their own time is rough, and stamps that go on at a distance are not.
    const double step = next.first - before.last - before.interval;
    if (areKnown && !areClocksSure(before, next) && next.first > before.last)
        return no(QStringLiteral("its time stamps begin %1 after those of the other end")
                      .arg(secondsText(step)));
    if (areKnown && gap < 0.0)
        return no(gapText(gap) + QStringLiteral(": they overlap, or a clock was set back"));
    if (areKnown)
        return no(gapText(gap));
    return no(QStringLiteral("it is not known when they began, and its time stamps do not go on"));
}
