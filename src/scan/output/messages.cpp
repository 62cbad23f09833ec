// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "messages.h"

#include "escaping.h"

#include <QFile>
#include <QStringList>

#include <cstdio>

Messages::Messages(bool isQuiet)
    : line(!isQuiet)
    , isQuiet(isQuiet) {}

void Messages::showProgress(const Progress& progress) {
    const std::lock_guard<std::mutex> lock(mutex);
    line.show(progress);
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
