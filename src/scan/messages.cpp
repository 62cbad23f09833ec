#include "messages.h"

#include <QFile>

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

void Messages::complain(const QString& subject, const QString& reason) {
    write(QStringLiteral("kestrova-scan: %1: %2\n").arg(subject, reason));
}

void Messages::summarise(const QString& text) {
    if (!isQuiet)
        write(text + '\n');
}

void Messages::write(const QString& text) {
    const std::lock_guard<std::mutex> lock(mutex);
    line.clear();
    std::fputs(QFile::encodeName(text).constData(), stderr);
}
