#include "encoderprocess.h"

#include <QCoreApplication>
#include <QDir>
#include <QSet>

namespace {

/// The objects that exist: keeps those reachable that outlive the program. Never destroyed itself.
QSet<EncoderProcess*>& existing() {
    static auto* processes = new QSet<EncoderProcess*>;
    return *processes;
}

} // namespace

EncoderProcess::EncoderProcess() {
    existing().insert(this);
    connect(this, SIGNAL(finished(int, QProcess::ExitStatus)), SLOT(deleteLater()));
    connect(this, SIGNAL(errorOccurred(QProcess::ProcessError)),
            SLOT(deleteUnstarted(QProcess::ProcessError)));
}

EncoderProcess::~EncoderProcess() {
    existing().remove(this);
}

void EncoderProcess::startEncoder(const QStringList& arguments) {
    const QDir programDirectory(QCoreApplication::applicationDirPath());
    start(programDirectory.absoluteFilePath(QStringLiteral("ffmpeg")), arguments,
          QIODevice::ReadWrite);
}

/// A process that could not start never finishes.
void EncoderProcess::deleteUnstarted(QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart)
        deleteLater();
}
