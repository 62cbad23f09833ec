// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "concatlist.h"

#include <QFile>

namespace {

/// Between quotes nothing else has a meaning. The protocol keeps a name from being taken for one.
QByteArray quoted(const QString& path) {
    return "'file:" + QFile::encodeName(path).replace("'", "'\\''") + '\'';
}

} // namespace

QByteArray concatList(const QVector<ConcatEntry>& entries) {
    QByteArray list = "ffconcat version 1.0\n";
    for (const ConcatEntry& entry : entries)
        list += "file " + quoted(entry.path) + "\nduration " +
                QByteArray::number(entry.length, 'f', 6) + '\n';
    return list;
}

bool canBeConcatenated(const QString& path) {
    return !path.contains(QLatin1Char('\n')) && !path.contains(QLatin1Char('\r'));
}
