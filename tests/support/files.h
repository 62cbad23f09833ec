// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>

/// The whole file; empty if it cannot be read.
QByteArray readFile(const QString& path);

/// What every file below a folder holds, by its path in it.
QMap<QString, QByteArray> filesIn(const QString& folder);

/// Makes the file, or replaces what it holds. False if it cannot be written.
bool writeFile(const QString& path, const QByteArray& content);

/// One object per line that is not empty.
QList<QJsonObject> jsonLines(const QByteArray& text);
