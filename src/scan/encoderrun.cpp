#include "encoderrun.h"

#include "interrupt.h"

#include <QCoreApplication>
#include <QProcess>

#include <mutex>

namespace {

constexpr int interruptPollMilliseconds = 50;
constexpr int longestEndMilliseconds = 3000;

/// Waits for the end, however long it takes, but not past an interrupt.
void waitForEnd(QProcess& encoder) {
    while (encoder.state() != QProcess::NotRunning && !isEnding())
        encoder.waitForFinished(interruptPollMilliseconds);
    if (encoder.state() == QProcess::NotRunning)
        return;
    encoder.terminate();
    if (!encoder.waitForFinished(longestEndMilliseconds))
        encoder.kill();
    encoder.waitForFinished();
}

QString lastLine(const QByteArray& text) {
    const QByteArrayList lines = text.trimmed().split('\n');
    return QString::fromLocal8Bit(lines.last().trimmed());
}

} // namespace

QString runEncoder(const QStringList& arguments) {
    static std::mutex turn;
    const std::lock_guard<std::mutex> lock(turn);
    if (isEnding()) // while it waited for its turn
        return QStringLiteral("interrupted");
    QProcess encoder;
    encoder.setStandardInputFile(QProcess::nullDevice());
    encoder.setStandardOutputFile(QProcess::nullDevice());
    // The font of the time overlay lies there.
    encoder.setWorkingDirectory(QCoreApplication::applicationDirPath());
    encoder.start(QCoreApplication::applicationDirPath() + QStringLiteral("/ffmpeg"), arguments);
    if (!encoder.waitForStarted(-1))
        return QStringLiteral("the encoder cannot be started: %1").arg(encoder.errorString());
    waitForEnd(encoder);
    if (isEnding())
        return QStringLiteral("interrupted");
    if (encoder.exitStatus() == QProcess::CrashExit)
        return QStringLiteral("the encoder crashed");
    if (encoder.exitCode() == 0)
        return {};
    return QStringLiteral("the encoder failed: %1").arg(lastLine(encoder.readAllStandardError()));
}
