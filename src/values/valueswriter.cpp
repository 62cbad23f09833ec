// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valueswriter.h"

#include "escapedbytes.h"
#include "shortestdigits.h"
#include "valuesformat.h"
#include "wholefile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace {

QByteArray pictureText(qint64 number, double time, float value) {
    return QByteArray::number(number) + '\t' + shortestDigits(time) + '\t' + shortestDigits(value) +
           '\n';
}

void appendPictures(const KeptValues& values, QByteArray& text) {
    qint64 number = values.firstNumber;
    text += pictureText(number, values.firstTime, 0.0F);
    for (int i = 0; i < values.times.size(); ++i)
        text += pictureText(++number, values.times[i], values.values[i]);
}

} // namespace

QByteArray valuesText(const KeptValues& values) {
    QByteArray text = formatName + QByteArray::number(formatNumber) + '\n';
    for (const HeadLine& line : headOf(values))
        text += headText(line);
    const int pictures = values.hasPictures ? values.times.size() + 1 : 0;
    if (values.hasPictures)
        appendPictures(values, text);
    if (values.damage)
        text += headText({damageKey, QByteArray::number(values.damage->packets) + ' ' +
                                         shortestDigits(values.damage->promised) + ' ' +
                                         shortestDigits(values.damage->read)});
    if (!values.reason.isEmpty())
        text += headText({reasonKey, escapedBytes(values.reason.toUtf8())});
    text += QByteArray("# ") + endKey + ": " + endWords[int(values.end)] + ' ' +
            QByteArray::number(pictures) + ' ';
    return text + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex() + '\n';
}

QString writeValues(const KeptValues& values, const QString& path) {
    std::error_code error;
    std::filesystem::create_directories(
        QFile::encodeName(QFileInfo(path).absolutePath()).toStdString(), error);
    if (error)
        return QString::fromStdString(error.message());
    return writeWholeFile(path, valuesText(values));
}
