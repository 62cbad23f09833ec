#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

/// The whole file; empty if it cannot be read.
QByteArray readFile(const QString& path);

/// One object per line that is not empty.
QList<QJsonObject> jsonLines(const QByteArray& text);
