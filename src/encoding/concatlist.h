// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// A recording that the encoder reads behind others, as if they were one.
struct ConcatEntry {
    QString path;        ///< absolute
    double length = 0.0; ///< seconds, from its beginning to that of the next one
};

/// The list of them for the encoder's concat demuxer. The encoder is led to nothing but these
/// paths, whatever their bytes are.
QByteArray concatList(const QVector<ConcatEntry>& entries);

/// Whether such a list can name the file: it is read line by line.
bool canBeConcatenated(const QString& path);
