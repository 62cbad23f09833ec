// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "namepattern.h"

#include "patternletters.h"

#include <QTimeZone>

namespace {

constexpr int longestPattern = 200; ///< characters
constexpr int mostStars = 6;        ///< each may double the time that a name takes

QString separator(QChar character) {
    if (character == '-')
        return QStringLiteral("[-_.: ]");
    if (character == '_')
        return QStringLiteral("(?: at | - |, |[-_. T])");
    return QRegularExpression::escape(character);
}

QString outsideLetters(QChar character, NamePattern::Separators separators) {
    if (character == '*')
        return QStringLiteral("[^/]*?");
    if (character == '?')
        return QStringLiteral("[^/]");
    return separators == NamePattern::Separators::Any ? separator(character)
                                                      : QRegularExpression::escape(character);
}

int monthNamed(const QString& name) {
    static const QString months = QStringLiteral("janfebmaraprmayjunjulaugsepoctnovdec");
    return months.indexOf(name.left(3).toLower()) / 3 + 1;
}

/// As POSIX has it.
int fullYear(int ofCentury) {
    return ofCentury + (ofCentury < 69 ? 2000 : 1900);
}

int millisecondsOf(const QString& fraction) {
    return fraction.left(3).leftJustified(3, '0').toInt();
}

int offsetOf(const QString& zone) {
    if (zone[0] != '+' && zone[0] != '-')
        return 0;
    const int seconds = zone.mid(1, 2).toInt() * 3600 + zone.right(2).toInt() * 60;
    return zone[0] == '-' ? -seconds : seconds;
}

/// The pieces of a time, from letter to letter.
struct Pieces {
    int year = 0;
    int month = 0;
    int day = 0;
    int dayOfYear = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
    qint64 epoch = -1; ///< milliseconds since 1970
    bool isAfternoon = false;
    bool isOf12 = false;
    std::optional<int> offset;

    void take(QChar letter, const QString& text);
    void takeNumber(QChar letter, int number);
    NamedTime named() const;
};

void Pieces::take(QChar letter, const QString& text) {
    if (letter == 'b' || letter == 'B')
        month = monthNamed(text);
    else if (letter == 'p')
        isAfternoon = text[0].toLower() == 'p';
    else if (letter == 'L' || letter == 'f')
        millisecond = millisecondsOf(text);
    else if (letter == 's')
        epoch = text.toLongLong() * (text.size() > 10 ? 1 : 1000);
    else if (letter == 'z')
        offset = offsetOf(text);
    else
        takeNumber(letter, text.trimmed().toInt());
}

void Pieces::takeNumber(QChar letter, int number) {
    if (letter == 'Y')
        year = number;
    else if (letter == 'y')
        year = fullYear(number);
    else if (letter == 'm')
        month = number;
    else if (letter == 'd' || letter == 'e')
        day = number;
    else if (letter == 'j')
        dayOfYear = number;
    else if (letter == 'M')
        minute = number;
    else if (letter == 'S')
        second = number;
    else {
        hour = number;
        isOf12 = letter == 'I' || letter == 'l';
    }
}

NamedTime Pieces::named() const {
    NamedTime named;
    named.offsetFromUtc = offset;
    if (epoch >= 0) {
        const QDateTime time = QDateTime::fromMSecsSinceEpoch(epoch, Qt::UTC);
        return {time.date(), time.time(), true, true, 0};
    }
    named.date = dayOfYear > 0 ? QDate(year, 1, 1).addDays(dayOfYear - 1) : QDate(year, month, day);
    if (named.date.year() != year)
        named.date = QDate();
    const int hours = isOf12 ? hour % 12 + (isAfternoon ? 12 : 0) : hour;
    named.time = QTime(hours, minute, second, millisecond);
    return named;
}

} // namespace

NamePattern::NamePattern(const QString& text, Separators separators)
    : isOfFolders(text.contains('/')) {
    if (text.size() > longestPattern)
        flawText = QStringLiteral("it is too long");
    else if (text.count('*') > mostStars)
        flawText = QStringLiteral("it has more than %1 stars").arg(mostStars);
    else
        translate(withoutShortForms(text), separators);
    if (flawText.isEmpty())
        check();
}

void NamePattern::translate(const QString& text, Separators separators) {
    QString body;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            body += outsideLetters(text[i], separators);
            continue;
        }
        const QChar letter = ++i < text.size() ? text[i] : QChar('%');
        const QString known = expressionOf(letter);
        if (known.isEmpty() && (letter != '%' || i == text.size())) {
            flawText = i == text.size()
                           ? QStringLiteral("it ends with a %")
                           : QStringLiteral("%%1 is none of %2").arg(letter).arg(patternLetters());
            return;
        }
        if (letter == 'p' && separators == Separators::Any)
            body += QStringLiteral("[-_. \\x{a0}\\x{202f}]?");
        body += known.isEmpty() ? QStringLiteral("%") : '(' + known + ')';
        if (!known.isEmpty())
            letters += letter;
    }
    enclose(body, text);
}

/// Numbers and words that go on are other ones.
void NamePattern::enclose(const QString& body, const QString& text) {
    const bool isWord = text.size() > 1 && text.back().isLetter() && text[text.size() - 2] != '%';
    const QString begin = isOfFolders ? QStringLiteral("(?:^|/)") : QStringLiteral("(?<![0-9])");
    const QString end = isWord ? QStringLiteral("(?![0-9a-z])") : QStringLiteral("(?![0-9])");
    const QString rest = isOfFolders ? QStringLiteral("[^/]*$") : QString();
    expression =
        QRegularExpression(begin + body + end + rest, QRegularExpression::CaseInsensitiveOption);
}

void NamePattern::check() {
    const bool hasYear = has('Y') || has('y');
    const bool hasMonth = has('m') || has('b') || has('B');
    const bool hasDay = (hasMonth && (has('d') || has('e'))) || has('j');
    const bool isOf12 = has('I') || has('l');
    if (has('s'))
        return;
    if (!hasYear || !hasDay)
        flawText = QStringLiteral("it has no whole day, as %Y%m%d is one");
    else if (!has('H') && !has('k') && !isOf12)
        flawText = QStringLiteral("it has no hour");
    else if (isOf12 != has('p'))
        flawText = QStringLiteral("hours of 12, %I, go with %p");
}

std::optional<NamedTime> NamePattern::find(const QString& path) const {
    const QString name = isOfFolders ? path : path.mid(path.lastIndexOf('/') + 1);
    auto matches = expression.globalMatch(name);
    while (matches.hasNext()) {
        const auto named = read(matches.next());
        if (named && named->date.isValid() && named->time.isValid())
            return named;
    }
    return std::nullopt;
}

/// Nothing where a letter that comes twice stands for two things.
std::optional<NamedTime> NamePattern::read(const QRegularExpressionMatch& match) const {
    Pieces pieces;
    for (int i = 0; i < letters.size(); ++i) {
        const int first = letters.indexOf(letters[i]);
        if (match.captured(i + 1) != match.captured(first + 1))
            return std::nullopt;
        pieces.take(letters[i], match.captured(i + 1));
    }
    NamedTime named = pieces.named();
    named.hasSeconds = has('S') || has('s');
    return named;
}
