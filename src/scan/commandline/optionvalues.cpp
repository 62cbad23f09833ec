// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optionvalues.h"

#include "optiontable.h"
#include "suggestion.h"

#include <QCommandLineParser>

OptionValues::OptionValues(const QCommandLineParser& parser)
    : parser(parser) {}

double OptionValues::number(const QString& option) {
    bool isNumber = false;
    const double value = parser.value(option).toDouble(&isNumber);
    check(option, value, isNumber);
    return value;
}

int OptionValues::integer(const QString& option) {
    bool isNumber = false;
    const int value = parser.value(option).toInt(&isNumber);
    check(option, double(value), isNumber);
    return value;
}

QString OptionValues::word(const QString& option) {
    const QStringList& words = scanOption(option).words;
    QString value = parser.value(option);
    if (!words.contains(value))
        reject(QStringLiteral("--%1 takes %2, not '%3'").arg(option, listed(words), value) +
               suggestion(value, words));
    return value;
}

void OptionValues::reject(const QString& message) {
    if (error.isEmpty())
        error = message;
}

/// Written so that what is no number at all fails, too.
void OptionValues::check(const QString& option, double value, bool isNumber) {
    const NumberRange& range = *scanOption(option).range;
    if (isNumber && value >= range.lowest && value <= range.highest)
        return;
    const QString kind =
        range.isWhole ? QStringLiteral("a whole number") : QStringLiteral("a number");
    reject(QStringLiteral("--%1 takes %2 from %3, not '%4'")
               .arg(option, kind, range.text(), parser.value(option)));
}
