#include "snapshotfolder.h"

#include <QDir>
#include <QFileInfo>

SnapshotFolder::SnapshotFolder(const QString& path, const QStringList& videos)
    : path(path) {
    for (const QString& video : videos) {
        const QString fileName = QFileInfo(video).fileName();
        QString name = fileName;
        for (int i = 1; names.contains(name); ++i)
            name = QStringLiteral("%1_%2").arg(fileName).arg(i);
        names.append(name);
    }
}

bool SnapshotFolder::prepare() const {
    return QDir().mkpath(path) && QFileInfo(path).isWritable();
}

QString SnapshotFolder::pathOf(int recording, int index) const {
    const QString number = QStringLiteral("%1").arg(index, 4, 10, QLatin1Char('0'));
    return QDir(path).filePath(QStringLiteral("%1-%2.png").arg(names[recording], number));
}
