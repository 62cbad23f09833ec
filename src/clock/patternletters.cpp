// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "patternletters.h"

#include <QStringList>

namespace {

struct Letter {
    char letter;
    const char* expression;
};

constexpr const char* monthName = "(?:jan(?:uary)?|feb(?:ruary)?|mar(?:ch)?|apr(?:il)?|may|june?|"
                                  "july?|aug(?:ust)?|sep(?:t|tember)?|oct(?:ober)?|"
                                  "nov(?:ember)?|dec(?:ember)?)";

// %L is a thousandth of a second, as some languages have it, and %f any fraction.
constexpr Letter letters[] = {
    {'Y', "[0-9]{4}"},
    {'y', "[0-9]{2}"},
    {'m', "(?:0[1-9]|1[0-2])"},
    {'b', monthName},
    {'B', monthName},
    {'d', "(?:0[1-9]|[12][0-9]|3[01])"},
    {'e', "(?:[12][0-9]|3[01]|[ 0]?[1-9])"},
    {'j', "[0-3][0-9]{2}"},
    {'H', "(?:[01][0-9]|2[0-3])"},
    {'k', "(?:1[0-9]|2[0-3]|[ 0]?[0-9])"},
    {'I', "(?:0[1-9]|1[0-2])"},
    {'l', "(?:1[0-2]|[ 0]?[1-9])"},
    {'p', "[ap]\\.?m\\.?(?![a-z])"},
    {'M', "[0-5][0-9]"},
    {'S', "[0-5][0-9]"},
    {'L', "[0-9]{3}"},
    {'f', "[0-9]{1,9}"},
    {'s', "(?<![0-9a-z])(?:[0-9]{9,10}|[0-9]{12,13})(?![a-z])"},
    {'z', "(?:(?:z|utc|gmt)(?![a-z])|[+-](?:0[0-9]|1[0-4]):?(?:00|15|30|45))"},
};

} // namespace

QString expressionOf(QChar letter) {
    for (const Letter& known : letters) {
        if (letter == QLatin1Char(known.letter))
            return QLatin1String(known.expression);
    }
    return {};
}

QString withoutShortForms(QString text) {
    return text.replace(QLatin1String("%F"), QLatin1String("%Y-%m-%d"))
        .replace(QLatin1String("%T"), QLatin1String("%H:%M:%S"))
        .replace(QLatin1String("%R"), QLatin1String("%H:%M"));
}

QString patternLetters() {
    QStringList all;
    for (const Letter& known : letters)
        all += QStringLiteral("%") + QLatin1Char(known.letter);
    return all.join(' ') + QStringLiteral(" %F %T %R %%");
}
