#include "snapshotfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

SnapshotFolder::SnapshotFolder(const QString& path, const QStringList& videos)
    : path(path) {
    QSet<QString> taken;
    QHash<QString, int> next; // number to try next, by file name
    for (const QString& video : videos) {
        const QString fileName = QFileInfo(video).fileName();
        QString name = fileName;
        for (int& number = next[fileName]; taken.contains(name);)
            name = fileName + QLatin1Char('_') + QString::number(++number);
        taken.insert(name);
        names.append(name);
    }
}

QString SnapshotFolder::pathOf(int recording, int index) const {
    const QString number = QStringLiteral("%1").arg(index, 4, 10, QLatin1Char('0'));
    return QDir(path).filePath(QStringLiteral("%1-%2.png").arg(names[recording], number));
}
