#include "clipfolder.h"

#include <QDir>
#include <QFileInfo>

QString makeClipFolder(const QString& fileName, const QString& exportDirectory) {
    const QFileInfo file(fileName);
    const QDir directory(exportDirectory);
    QString name;
    int number = 0;
    do {
        // All at once: a file name may hold a "%3" of its own.
        name = QStringLiteral("%1_%2_%3")
                   .arg(file.baseName(), file.suffix(), QString::number(number++));
    } while (directory.exists(name));
    directory.mkpath(name);
    return directory.absoluteFilePath(name);
}
