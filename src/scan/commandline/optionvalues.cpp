// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optionvalues.h"

#include "suggestion.h"

#include <QCommandLineParser>

#include <algorithm>

namespace {

/// `need`: an option, or an option and its value with a space between them.
bool isGiven(const QCommandLineParser& parser, const QString& need) {
    const QString name = need.section(' ', 0, 0);
    return parser.isSet(name) && (name == need || parser.value(name) == need.section(' ', 1));
}

} // namespace

OptionValues::OptionValues(const QCommandLineParser& parser)
    : parser(parser)
    , areOfCells(isGiven(parser, QStringLiteral("detector cells"))) {}

double OptionValues::number(const QString& option) {
    bool isNumber = false;
    const double value = valueOf(option).toDouble(&isNumber);
    check(option, value, isNumber);
    return value;
}

int OptionValues::integer(const QString& option) {
    bool isNumber = false;
    const int value = valueOf(option).toInt(&isNumber);
    check(option, double(value), isNumber);
    return value;
}

std::optional<double> OptionValues::givenNumber(const QString& option) {
    return parser.isSet(option) ? std::optional<double>(number(option)) : std::nullopt;
}

QString OptionValues::word(const QString& option) {
    const QStringList& words = scanOption(option).words;
    QString value = parser.value(option);
    if (!words.contains(value))
        reject(QStringLiteral("--%1 takes %2, not '%3'").arg(option, listed(words), value) +
               suggestion(value, words));
    return value;
}

void OptionValues::checkCompany() {
    for (const ScanOption& option : scanOptions()) {
        if (!parser.isSet(option.name))
            continue;
        const QString flaw = companyFlaw(option);
        if (!flaw.isEmpty())
            reject(flaw);
        const bool isPath = option.kind == ValueKind::File || option.kind == ValueKind::Folder;
        if (isPath && parser.values(option.name).contains(QString()))
            reject(QStringLiteral("--%1 needs a name").arg(option.name));
    }
}

/// Why an option that is given cannot go with the others; empty if it can.
QString OptionValues::companyFlaw(const ScanOption& option) const {
    const auto isThere = [this](const QString& need) { return isGiven(parser, need); };
    const bool isAlone = !option.needs.isEmpty() &&
                         std::none_of(option.needs.cbegin(), option.needs.cend(), isThere);
    const auto other = std::find_if(option.excludes.cbegin(), option.excludes.cend(), isThere);
    const bool isCrowded = other != option.excludes.cend();
    if (!isAlone && !isCrowded)
        return {};
    if (!option.needs.isEmpty() && option.excludes.size() <= 1) // few enough to be told whole
        return QStringLiteral("--%1 %2").arg(option.name, option.company());
    if (isAlone)
        return QStringLiteral("--%1 needs --%2").arg(option.name, option.needs.join(" or --"));
    return QStringLiteral("--%1 and --%2 exclude each other").arg(option.name, *other);
}

void OptionValues::reject(const QString& message) {
    if (error.isEmpty())
        error = message;
}

QString OptionValues::valueOf(const QString& option) const {
    const ScanOption& asked = scanOption(option);
    if (areOfCells && asked.ofCells && !parser.isSet(option))
        return asked.ofCells->fallback;
    return parser.value(option);
}

NumberRange OptionValues::rangeOf(const QString& option) const {
    const ScanOption& asked = scanOption(option);
    return areOfCells && asked.ofCells ? asked.ofCells->range : *asked.range;
}

/// Written so that what is no number at all fails, too.
void OptionValues::check(const QString& option, double value, bool isNumber) {
    const NumberRange range = rangeOf(option);
    if (isNumber && value >= range.lowest && value <= range.highest)
        return;
    const QString kind =
        range.isWhole ? QStringLiteral("a whole number") : QStringLiteral("a number");
    reject(QStringLiteral("--%1 takes %2 from %3, not '%4'")
               .arg(option, kind, range.text(), parser.value(option)));
}
