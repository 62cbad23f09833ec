#include "encoderpath.h"

#include <QCoreApplication>
#include <QDir>

QString encoderPath() {
    const QDir programDirectory(QCoreApplication::applicationDirPath());
    return programDirectory.absoluteFilePath(QStringLiteral("ffmpeg"));
}
