// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderchild.h"

#include "encoderarguments.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFileInfo>

#include <csignal>
#include <sys/prctl.h>

namespace {

constexpr int pollMilliseconds = 50;
constexpr int longestEndMilliseconds = 3000;

/// What is wrong with the file of an encoder that has ended with status 0; empty if nothing is.
QString flaw(const QFileInfo& file, const QString& reason) {
    if (!file.exists())
        return QStringLiteral("the encoder wrote no file");
    if (file.size() == 0)
        return QStringLiteral("the encoder wrote an empty file");
    // Its status tells of the last packet, not of what is written behind it.
    if (reason.startsWith(QStringLiteral("Error writing trailer of ")) ||
        reason.startsWith(QStringLiteral("Error closing file ")))
        return QStringLiteral("the encoder did not finish the file");
    return {};
}

} // namespace

EncoderChild::EncoderChild() {
    setStandardInputFile(nullDevice());
    setStandardOutputFile(nullDevice());
    setReadChannel(StandardError);
    // The font of the time overlay lies there.
    setWorkingDirectory(QCoreApplication::applicationDirPath());
}

QString EncoderChild::begin(const QStringList& arguments) {
    start(encoderPath(), arguments);
    if (waitForStarted(-1))
        return {};
    return QStringLiteral("the encoder cannot be started: %1").arg(errorString());
}

void EncoderChild::hear(const std::function<bool()>& isOver) {
    while (state() != NotRunning && !isOver()) {
        // Refused at once where it has closed its error output.
        if (!waitForReadyRead(pollMilliseconds))
            waitForFinished(1);
        listen();
    }
    listen();
}

void EncoderChild::waitForEnd(const std::function<bool()>& isEnding) {
    hear(isEnding);
    if (state() != NotRunning)
        endIt();
}

void EncoderChild::endIt() {
    terminate();
    const QDeadlineTimer deadline(longestEndMilliseconds);
    hear([&deadline] { return deadline.hasExpired(); });
    kill();
    hear([] { return false; });
}

QString EncoderChild::failureOf(const QString& path, bool isCutShort) const {
    const bool isGood = exitStatus() == NormalExit && exitCode() == 0;
    return isGood ? withReason(flaw(QFileInfo(path), log.reason())) : failure(isCutShort);
}

QString EncoderChild::failure(bool isCutShort) const {
    const bool hasCrashed = exitStatus() == CrashExit;
    if (!hasCrashed && exitCode() == 0)
        return {};
    if (isCutShort)
        return QStringLiteral("interrupted");
    return withReason(hasCrashed ? QStringLiteral("the encoder crashed")
                                 : QStringLiteral("the encoder failed"));
}

QString EncoderChild::withReason(const QString& failure) const {
    const QString reason = log.reason();
    return failure.isEmpty() || reason.isEmpty() ? failure : failure + ": " + reason;
}

/// An encoder that has lost the program would go on writing for nobody.
void EncoderChild::setupChildProcess() {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
}
