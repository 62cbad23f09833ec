// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "standardoutput.h"

#include "escaping.h"

#include <cstdio>
#include <unistd.h>

namespace {

void writeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const QString line = qFormatLogMessage(type, context, text);
    if (!line.isNull()) // as a pattern of the person's own may have it
        std::fprintf(stderr, "%s\n", printableLines(QFile::encodeName(line)).constData());
}

} // namespace

bool StandardOutput::openStandard() {
    isTerminal = isatty(STDOUT_FILENO) == 1;
    return QFile::open(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered);
}

qint64 StandardOutput::writeData(const char* bytes, qint64 size) {
    if (!isTerminal)
        return QFile::writeData(bytes, size);
    const QByteArray shown = printableLines(QByteArray(bytes, int(size)));
    qint64 written = 0;
    while (written < shown.size()) {
        const qint64 part = QFile::writeData(shown.constData() + written, shown.size() - written);
        if (part <= 0)
            return -1;
        written += part;
    }
    return size;
}

void installMessageHandler() {
    qInstallMessageHandler(writeMessage);
}
