// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jsonfields.h"

#include "filenames.h"

#include <QFile>

#include <cmath>

QJsonValue textJson(const QString& text) {
    return QString::fromLatin1(encodedPath(text));
}

QJsonValue numberJson(double number) {
    return std::isfinite(number) ? QJsonValue(number) : QJsonValue(QString::number(number));
}

JsonFields::JsonFields(const QJsonValue& value, bool& isGood)
    : object(value.toObject())
    , isGood(isGood) {
    isGood = isGood && value.isObject();
}

QString JsonFields::text(const char* key) {
    const QByteArray coded = take(key, QJsonValue::String).toString().toLatin1();
    return QFile::decodeName(QByteArray::fromPercentEncoding(coded));
}

double JsonFields::number(const char* key) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isDouble())
        return value.toDouble();
    bool isNumber = false;
    const double number = take(key, QJsonValue::String).toString().toDouble(&isNumber);
    return judged(isNumber, number);
}

int JsonFields::integer(const char* key, int lowest, int highest) {
    const double value = take(key, QJsonValue::Double).toDouble();
    return int(judged(value >= lowest && value <= highest && std::floor(value) == value, value));
}

qint64 JsonFields::count(const char* key) {
    constexpr double most = 9007199254740992.0; // whole numbers are exact up to here
    const double value = take(key, QJsonValue::Double).toDouble();
    return qint64(judged(value >= 0.0 && value <= most && std::floor(value) == value, value));
}

qint64 JsonFields::whole(const char* key) {
    bool isNumber = false;
    const qint64 number = take(key, QJsonValue::String).toString().toLongLong(&isNumber);
    return judged(isNumber, number);
}

bool JsonFields::flag(const char* key) {
    return take(key, QJsonValue::Bool).toBool();
}

QJsonArray JsonFields::array(const char* key, int longest) {
    const QJsonArray array = take(key, QJsonValue::Array).toArray();
    return judged(array.size() <= longest, array);
}

JsonFields JsonFields::fields(const char* key) {
    return {take(key, QJsonValue::Object), isGood};
}

QJsonValue JsonFields::take(const char* key, QJsonValue::Type type) {
    const QJsonValue value = object.value(QLatin1String(key));
    return judged(value.type() == type, value);
}
