// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesname.h"

#include "namelength.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstring>

namespace {

constexpr int digestDigits = 32;

/// The most that is put behind a name while its file is being written.
constexpr char longestEnding[] = ".values.2147483647-2147483647.part";

} // namespace

QString valuesPath(const QString& folder, const QByteArray& recording) {
    const QByteArray digest =
        QCryptographicHash::hash(recording, QCryptographicHash::Sha256).toHex().left(digestDigits);
    const int longest = longestNameIn(folder) - int(std::strlen(longestEnding)) - digestDigits - 1;
    QString name = QFileInfo(QFile::decodeName(recording)).fileName();
    while (nameLength(name) > longest)
        chopCharacter(name);
    return QDir(folder).filePath(name + '-' + QString::fromLatin1(digest) +
                                 QStringLiteral(".values"));
}
