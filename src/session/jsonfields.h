// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// A text as JSON holds it: any file name's bytes can be had back (encodedPath).
QJsonValue textJson(const QString& text);

/// A number as JSON holds it: exact, and also where it is none.
QJsonValue numberJson(double number);

/// Reads a JSON object whose fields are known. What is missing, of another kind or out of its range
/// reads as nothing, and `isGood` is false from then on.
class JsonFields {
public:
    /// `isGood` must outlive it.
    JsonFields(const QJsonValue& value, bool& isGood);

    bool has(const char* key) const { return object.contains(QLatin1String(key)); }

    QString text(const char* key);
    double number(const char* key);
    int integer(const char* key, int lowest, int highest);
    qint64 count(const char* key); ///< 0 to 2^53
    qint64 whole(const char* key); ///< any, written as a text
    bool flag(const char* key);
    QJsonArray array(const char* key, int longest);
    JsonFields fields(const char* key);

private:
    QJsonValue take(const char* key, QJsonValue::Type type);

    /// `value`, unless it is bad.
    template<class T>
    T judged(bool isValueGood, T value) {
        isGood = isGood && isValueGood;
        return isValueGood ? value : T();
    }

    QJsonObject object;
    bool& isGood;
};
