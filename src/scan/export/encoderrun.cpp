// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderrun.h"

#include "encoderarguments.h"
#include "encoderlog.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <csignal>
#include <sys/prctl.h>

namespace {

constexpr int pollMilliseconds = 50;
constexpr int longestEndMilliseconds = 3000;

class Encoder : public QProcess {
protected:
    /// An encoder that has lost the program would go on writing for nobody.
    void setupChildProcess() override { prctl(PR_SET_PDEATHSIG, SIGTERM); }
};

/// Takes in what the encoder says, so that it is never held as a whole, until it has ended or
/// `isOver` says so.
template<typename Condition>
void hear(QProcess& encoder, EncoderLog& log, const Condition& isOver) {
    while (encoder.state() != QProcess::NotRunning && !isOver()) {
        // Refused at once where it has closed its error output.
        if (!encoder.waitForReadyRead(pollMilliseconds))
            encoder.waitForFinished(1);
        log.append(encoder.readAllStandardError());
    }
    log.append(encoder.readAllStandardError());
}

/// Waits for the end, however long it takes, but not past the end of the scan.
void waitForEnd(QProcess& encoder, EncoderLog& log, const std::function<bool()>& isEnding) {
    hear(encoder, log, isEnding);
    if (encoder.state() == QProcess::NotRunning)
        return;
    encoder.terminate();
    const QDeadlineTimer deadline(longestEndMilliseconds);
    hear(encoder, log, [&deadline] { return deadline.hasExpired(); });
    encoder.kill();
    hear(encoder, log, [] { return false; });
}

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

QString failureOf(const QProcess& encoder, const EncoderLog& log, const QString& path,
                  bool isCutShort) {
    const bool hasCrashed = encoder.exitStatus() == QProcess::CrashExit;
    const QString reason = log.reason();
    QString failure;
    if (!hasCrashed && encoder.exitCode() == 0)
        failure = flaw(QFileInfo(path), reason);
    else if (isCutShort)
        return QStringLiteral("interrupted");
    else
        failure = hasCrashed ? QStringLiteral("the encoder crashed")
                             : QStringLiteral("the encoder failed");
    return failure.isEmpty() || reason.isEmpty() ? failure : failure + ": " + reason;
}

} // namespace

QString runEncoder(const EncoderCall& call, const std::function<bool()>& isEnding) {
    Encoder encoder;
    encoder.setStandardInputFile(QProcess::nullDevice());
    encoder.setStandardOutputFile(QProcess::nullDevice());
    encoder.setReadChannel(QProcess::StandardError);
    // The font of the time overlay lies there.
    encoder.setWorkingDirectory(QCoreApplication::applicationDirPath());
    encoder.start(encoderPath(), call.arguments);
    if (!encoder.waitForStarted(-1))
        return QStringLiteral("the encoder cannot be started: %1").arg(encoder.errorString());
    EncoderLog log;
    waitForEnd(encoder, log, isEnding);
    const QFileInfo file(call.outputPath);
    QString failure = failureOf(encoder, log, call.outputPath, isEnding());
    if (file.isFile() && file.size() == 0)
        QFile::remove(call.outputPath);
    return failure;
}
