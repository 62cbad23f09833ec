// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partfiles.h"

#include "valuesname.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

PartFiles::PartFiles(const QString& folder)
    : folder(folder) {
    static const QRegularExpression ending(
        QStringLiteral("-[1-9][0-9]{0,3}of([1-9][0-9]{0,3})\\.values$"));
    QDirIterator entries(folder, {QStringLiteral("*of*.values")}, QDir::Files);
    while (entries.hasNext()) {
        entries.next();
        const auto match = ending.match(entries.fileName());
        if (match.hasMatch())
            ++files[entries.fileName().left(match.capturedStart())][match.captured(1).toInt()];
    }
}

QVector<int> PartFiles::counts(const QByteArray& recording) const {
    const QString whole = QFileInfo(valuesPath(folder, recording)).fileName();
    const auto found = files.constFind(whole.left(whole.lastIndexOf(QLatin1Char('.'))));
    QVector<int> complete;
    if (found == files.constEnd())
        return complete;
    for (auto count = found->cbegin(); count != found->cend(); ++count) {
        if (count.value() == count.key())
            complete.append(count.key());
    }
    return complete;
}
