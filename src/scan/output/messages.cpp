// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "messages.h"

#include "escaping.h"

#include <QFile>
#include <QStringList>

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
    if (progress.isOfParts)
        return QStringLiteral("%1 % looked at, %2 clips").arg(share).arg(progress.clips);
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
    show(line(progress, double(sinceStart.elapsed()) / 1000.0));
}

void ProgressLine::show(const QString& step) {
    const bool isTooSoon = sinceShown.isValid() && sinceShown.elapsed() < shownEveryMilliseconds;
    if (!isShown || isTooSoon)
        return;
    std::fprintf(stderr, "\r%s\033[K", qPrintable(step));
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

Messages::Messages(bool isQuiet)
    : line(!isQuiet)
    , isQuiet(isQuiet) {}

void Messages::showProgress(const Progress& progress) {
    const std::lock_guard<std::mutex> lock(mutex);
    line.show(progress);
}

void Messages::showStep(const QString& step) {
    const std::lock_guard<std::mutex> lock(mutex);
    line.show(step);
}

void Messages::makeRoom() {
    const std::lock_guard<std::mutex> lock(mutex);
    line.clear();
}

void Messages::tell(const QString& subject, const QString& text) {
    QStringList lines;
    for (const QString& line : text.split(QLatin1Char('\n')))
        lines += printable(line);
    write(QStringLiteral("kestrova-scan: %1: %2\n")
              .arg(printable(subject), lines.join(QStringLiteral("\n    "))));
}

void Messages::note(const QString& text) {
    if (!isQuiet)
        write(printable(text) + '\n');
}

void Messages::write(const QString& text) {
    const std::lock_guard<std::mutex> lock(mutex);
    line.clear();
    std::fputs(QFile::encodeName(text).constData(), stderr);
}
