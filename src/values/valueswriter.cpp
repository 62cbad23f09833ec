// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valueswriter.h"

#include "escaping.h"
#include "valuesformat.h"
#include "writing.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

void appendPictures(const Measurement& measurement, QByteArray& text) {
    const MotionSeries& series = measurement.series;
    qint64 number = measurement.firstNumber;
    text += pictureText(number, measurement.firstTime, {});
    for (int i = 0; i < series.times.size(); ++i)
        text += pictureText(++number, series.times[i], series.scores[i]);
}

const char* wordOf(DetectionOutcome outcome) {
    const auto* found = std::find_if(std::begin(endWords), std::end(endWords),
                                     [outcome](EndWord end) { return end.outcome == outcome; });
    return found->word;
}

} // namespace

QByteArray valuesText(const KeptValues& values) {
    QByteArray text = formatName + QByteArray::number(formatNumber) + '\n';
    for (const HeadLine& line : headOf(values))
        text += headText(line);
    const Measurement& measurement = values.measurement;
    if (measurement.hasPictures)
        appendPictures(measurement, text);
    if (measurement.damage.isThere())
        text += headText({damageKey, damageNumbers(measurement.damage)});
    if (!values.reason.isEmpty())
        text += headText({reasonKey, escapedBytes(values.reason.toUtf8())});
    const int pictures = measurement.hasPictures ? measurement.series.times.size() + 1 : 0;
    text += QByteArray("# ") + endKey + ": " + wordOf(values.outcome) + ' ' +
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
