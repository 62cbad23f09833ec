// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reportfolder.h"

#include "picturefile.h"
#include "reportpage.h"
#include "snapshotfolder.h"

#include <QDir>
#include <QFileInfo>

QString reportPage(const QString& folder) {
    return QDir(folder).filePath(QStringLiteral("index.html"));
}

QString reportPictureFolder(const QString& folder) {
    return QDir(folder).filePath(QStringLiteral("pictures"));
}

QString writeReportPicture(const QImage& picture, const QString& beginning, const QString& folder,
                           ReportedClip& clip) {
    if (picture.isNull())
        return QStringLiteral("its pictures cannot be scaled");
    const QString path = snapshotPath(beginning, clip.index);
    const QString failure = writePictureFile(picture, path, FolderLink::Refused);
    if (!failure.isEmpty())
        return QStringLiteral("cannot write the picture %1: %2").arg(path, failure);
    clip.pictureFile = QDir(folder).relativeFilePath(QFileInfo(path).absoluteFilePath());
    clip.pictureSize = picture.size();
    return {};
}

QString writeReportPage(const MotionReport& report, const QString& path) {
    const ReportPage page(report);
    return writeWholeFile(path, [&](const PieceSink& sink) { page.write(sink); });
}
