// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valueswriter.h"

#include "escaping.h"
#include "keptfile.h"
#include "valuesformat.h"

#include <QCryptographicHash>

#include <algorithm>

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
    text += QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex() + '\n';
    return text;
}

QByteArray digestIn(const QByteArray& text) {
    return text.mid(text.lastIndexOf(' ') + 1).trimmed();
}

QString writeValues(const QByteArray& text, const QString& path) {
    return writeKeptFile(path, [&](const PieceSink& sink) { sink(text); });
}
