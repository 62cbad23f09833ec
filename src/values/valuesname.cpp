// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesname.h"

#include "filenames.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstring>

namespace {

constexpr int digestDigits = 32;

constexpr char valuesEnding[] = ".values";

/// The most that is put behind a name while its file is being written.
constexpr char longestEnding[] = "-9999of9999.values.2147483647-2147483647.part";

QString pathOf(const QString& folder, const QByteArray& recording, const QString& ending) {
    const QByteArray digest =
        QCryptographicHash::hash(recording, QCryptographicHash::Sha256).toHex().left(digestDigits);
    const int longest = longestNameIn(folder) - int(std::strlen(longestEnding)) - digestDigits - 1;
    const QString name =
        fittingBeginning(QFileInfo(QFile::decodeName(recording)).fileName(), longest);
    return QDir(folder).filePath(name + '-' + QString::fromLatin1(digest) + ending);
}

} // namespace

QString valuesPath(const QString& folder, const QByteArray& recording) {
    return pathOf(folder, recording, QStringLiteral(".values"));
}

QString partPath(const QString& folder, const QByteArray& recording, int index, int count) {
    return pathOf(folder, recording, QStringLiteral("-%1of%2.values").arg(index).arg(count));
}

QString cellsPath(const QString& path) {
    return path.chopped(int(std::strlen(valuesEnding))) + QStringLiteral(".cells");
}

bool isValuesName(const QString& path) {
    return path.endsWith(QLatin1String(valuesEnding));
}
