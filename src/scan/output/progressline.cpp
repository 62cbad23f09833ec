// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "progressline.h"

#include <QString>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr qint64 shownEveryMilliseconds = 200;

QString line(const Progress& progress, double elapsedSeconds) {
    const double speed = elapsedSeconds > 0.0 ? progress.seconds / elapsedSeconds : 0.0;
    const QString share = progress.share < 0.0
                              ? QStringLiteral("?")
                              : QString::number(int(std::min(progress.share, 1.0) * 100.0));
    return QStringLiteral("%1%  clips: %2  speed: %3x")
        .arg(share)
        .arg(progress.clips)
        .arg(speed, 0, 'f', 1);
}

} // namespace

ProgressLine::ProgressLine(bool isWanted)
    : isShown(isWanted && isatty(STDERR_FILENO) == 1) {
    sinceStart.start();
}

void ProgressLine::show(const Progress& progress) {
    const bool isTooSoon = sinceShown.isValid() && sinceShown.elapsed() < shownEveryMilliseconds;
    if (!isShown || isTooSoon)
        return;
    const QString text = line(progress, double(sinceStart.elapsed()) / 1000.0);
    std::fprintf(stderr, "\r%s\033[K", qPrintable(text));
    std::fflush(stderr);
    sinceShown.start();
    isDirty = true;
}

void ProgressLine::clear() {
    if (!isDirty)
        return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    isDirty = false;
}
