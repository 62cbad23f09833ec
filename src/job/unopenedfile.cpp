// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "unopenedfile.h"

#include "mediafile.h"
#include "video.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int longestMilliseconds = 10000; // as for the first picture

QString reasonOf(const QString& fileName) {
    const QFileInfo info(fileName);
    if (!info.exists())
        return QStringLiteral("No such file or directory");
    if (!info.isFile())
        return QStringLiteral("no regular file");
    const QDeadlineTimer deadline(longestMilliseconds);
    const MediaFile file(QFile::encodeName(fileName),
                         [&deadline] { return deadline.hasExpired(); });
    return file.isOpen() ? QStringLiteral("no picture could be decoded") : file.errorText();
}

} // namespace

JobRecord recordOfUnopened(const QString& fileName) {
    JobRecord record;
    record.fileName = fileName;
    record.fileSize = QFileInfo(fileName).size();
    record.state = Video::Failed;
    record.facts.error = reasonOf(fileName);
    return record;
}
