#include "snapshotfolder.h"

#include <QDir>
#include <QFileInfo>

SnapshotFolder::SnapshotFolder(const QString& path)
    : path(path) {}

bool SnapshotFolder::prepare() const {
    return QDir().mkpath(path) && QFileInfo(path).isWritable();
}

QString SnapshotFolder::takeName(const QString& video) {
    const QString fileName = QFileInfo(video).fileName();
    QString name = fileName;
    for (int i = 1; taken.contains(name); ++i)
        name = QStringLiteral("%1_%2").arg(fileName).arg(i);
    taken.insert(name);
    return name;
}

QString SnapshotFolder::pathOf(const QString& name, int index) const {
    const QString number = QStringLiteral("%1").arg(index, 4, 10, QLatin1Char('0'));
    return QDir(path).filePath(QStringLiteral("%1-%2.png").arg(name, number));
}
