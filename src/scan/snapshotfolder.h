#pragma once

#include <QSet>
#include <QString>

/// The folder that clips' pictures are written into, as NAME-0000.png and so on.
///
/// NAME is the recording's file name; where recordings of several folders share it, the second one
/// becomes NAME_1, the third NAME_2.
class SnapshotFolder {
public:
    explicit SnapshotFolder(const QString& path);

    /// Makes the folder if it is missing; false if it cannot be written into.
    bool prepare() const;

    /// The NAME for the recording's pictures. Each call takes one.
    QString takeName(const QString& video);

    /// The path of the picture of clip `index` (0 or more).
    QString pathOf(const QString& name, int index) const;

private:
    QString path;
    QSet<QString> taken;
};
