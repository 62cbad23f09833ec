// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "datetimetyping.h"

#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <utility>

namespace {

constexpr int noon = 12;

struct Limits {
    int digits;
    int highest;
};

Limits limitsOf(QDateTimeEdit::Section section) {
    switch (section) {
    case QDateTimeEdit::MonthSection:
        return {2, 12};
    case QDateTimeEdit::DaySection:
        return {2, 31};
    case QDateTimeEdit::YearSection:
        return {4, 9999};
    case QDateTimeEdit::HourSection:
        return {2, 23};
    case QDateTimeEdit::MinuteSection:
    case QDateTimeEdit::SecondSection:
        return {2, 59};
    default:
        return {0, 0};
    }
}

} // namespace

DateTimeTyping::DateTimeTyping(QDateTimeEdit& edit)
    : QObject(&edit)
    , edit(edit)
    , line(*edit.findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly)) {
    edit.installEventFilter(this);
    line.installEventFilter(this);
}

bool DateTimeTyping::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched == &edit)
        return takeKey(static_cast<QKeyEvent&>(*event));
    const bool isElsewhere = event->type() == QEvent::MouseButtonPress ||
                             event->type() == QEvent::Wheel || event->type() == QEvent::FocusOut;
    if (isElsewhere)
        end();
    return false;
}

/// Whether the toolkit is to be kept from the key.
bool DateTimeTyping::takeKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Shift)
        return false;
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const QChar sign = event.text().size() == 1 ? event.text()[0] : QChar();
    if (isCommand || !sign.isPrint()) {
        end();
        return false;
    }
    if (sign.isDigit())
        return takeDigit(sign);
    const QChar letter = sign.toLower();
    if (letter == 'a' || letter == 'p')
        return takeHalf(letter == 'p');
    return letter.isLetter() ? letter == 'm' : takeSeparator();
}

/// A section that is edited in its middle is left to the toolkit.
bool DateTimeTyping::takeDigit(QChar digit) {
    if (!isTyping && !begin()) {
        toolkitSection = edit.currentSectionIndex();
        return false;
    }
    isAhead = false;
    const Limits limits = limitsOf(edit.sectionAt(section));
    const int number = (digits + digit).toInt();
    if (number > limits.highest || digits.size() >= limits.digits)
        return true;
    digits += digit;
    const bool isComplete = digits.size() == limits.digits || number * 10 > limits.highest;
    // What is no number of its section yet is shown by the toolkit as far as it likes it.
    const bool isYear = edit.sectionAt(section) == QDateTimeEdit::YearSection;
    if ((isYear && !isComplete) || !set(number))
        return false;
    show();
    if (isComplete) {
        endSection();
        isAhead = true;
    }
    return true;
}

bool DateTimeTyping::takeSeparator() {
    if (!isTyping) {
        const int before = std::exchange(toolkitSection, -1);
        return before >= 0 && before != edit.currentSectionIndex();
    }
    if (std::exchange(isAhead, false))
        return true;
    constexpr int shortYear = 2;
    const bool isYear = edit.sectionAt(section) == QDateTimeEdit::YearSection;
    if (isYear && digits.size() == shortYear)
        set(2000 + digits.toInt());
    show();
    endSection();
    return true;
}

bool DateTimeTyping::takeHalf(bool isAfternoon) {
    if (!isTyping) {
        edit.interpretText();
        begin();
    }
    isPm = isAfternoon;
    time.setHMS(time.hour() % noon + (isPm ? noon : 0), time.minute(), time.second());
    isTyping = true;
    isAhead = false;
    section = edit.sectionCount() - 1;
    digits.clear();
    show();
    return true;
}

/// Whether the next digit replaces what is selected.
bool DateTimeTyping::begin() {
    const QString selected = line.selectedText();
    const bool isAll = !selected.isEmpty() && selected == edit.text();
    section = isAll ? 0 : edit.currentSectionIndex();
    year = edit.date().year();
    month = edit.date().month();
    day = edit.date().day();
    time = edit.time();
    isPm = time.hour() >= noon;
    digits.clear();
    isAhead = false;
    isTyping =
        isAll || (!selected.isEmpty() && selected == edit.sectionText(edit.sectionAt(section)));
    return isTyping;
}

void DateTimeTyping::end() {
    isTyping = false;
    toolkitSection = -1;
}

void DateTimeTyping::endSection() {
    section = std::min(section + 1, edit.sectionCount() - 1);
    digits.clear();
    edit.setSelectedSection(edit.sectionAt(section));
}

/// Whether the section can have this number.
bool DateTimeTyping::set(int number) {
    const auto kind = edit.sectionAt(section);
    const bool isDate = kind & QDateTimeEdit::DateSections_Mask;
    if (isDate && number == 0)
        return false;
    if (kind == QDateTimeEdit::MonthSection)
        month = number;
    else if (kind == QDateTimeEdit::DaySection)
        day = number;
    else if (kind == QDateTimeEdit::YearSection)
        year = number;
    else if (kind == QDateTimeEdit::HourSection)
        setHour(number);
    else if (kind == QDateTimeEdit::MinuteSection)
        time.setHMS(time.hour(), number, time.second());
    else
        time.setHMS(time.hour(), time.minute(), number);
    return true;
}

/// Of 12, in the half of the day that is shown, unless only a clock of 24 has it, or is shown.
void DateTimeTyping::setHour(int hour) {
    const bool hasHalves = edit.displayedSections() & QDateTimeEdit::AmPmSection;
    const bool isOf24 = !hasHalves || hour == 0 || hour > noon;
    if (!isOf24)
        hour = hour % noon + (isPm ? noon : 0);
    time.setHMS(hour, time.minute(), time.second());
}

void DateTimeTyping::show() {
    const int daysInMonth = QDate(year, month, 1).daysInMonth();
    const QDate date(year, month, std::min(day, daysInMonth));
    edit.setDateTime(QDateTime(date, time, edit.timeSpec()));
    edit.setSelectedSection(edit.sectionAt(section));
}
