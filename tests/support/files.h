// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

/// The whole file; empty if it cannot be read.
QByteArray readFile(const QString& path);

/// Makes the file, or replaces what it holds. False if it cannot be written.
bool writeFile(const QString& path, const QByteArray& content);

/// One object per line that is not empty.
QList<QJsonObject> jsonLines(const QByteArray& text);
