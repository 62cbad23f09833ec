// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QObject>
#include <QTime>

class QDateTimeEdit;
class QKeyEvent;
class QLineEdit;

/// Lets a person type a date and time as it is written, from any selected section on.
///
/// The toolkit goes on to the next section as soon as no further digit can follow, and then takes
/// the separator that is typed for the wish to leave that section, too; it takes a space for a part
/// of AM and PM; and it corrects a day that does not exist before its year has been typed. Here a
/// separator ends the section that was typed, A and P are enough for AM and PM in every language,
/// hours may be those of 24, and the day counts that was typed. Everything else is the toolkit's.
class DateTimeTyping : public QObject {
    Q_OBJECT

public:
    /// For `edit`, which owns it. Its sections are numbers, in any order, and AM or PM at the end,
    /// or none.
    explicit DateTimeTyping(QDateTimeEdit& edit);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takeKey(const QKeyEvent& event);
    bool takeDigit(QChar digit);
    bool takeSeparator();
    bool takeHalf(bool isAfternoon);
    bool begin();
    void end();
    void endSection();
    bool set(int number);
    void setHour(int hour);
    void show();

    QDateTimeEdit& edit;
    QLineEdit& line;
    bool isTyping = false;   ///< since a section, or all, was selected
    int section = 0;         ///< where the next digit goes, while typing
    QString digits;          ///< of this section
    bool isAhead = false;    ///< the last section was complete: its separator may still come
    int toolkitSection = -1; ///< in which the toolkit was given the last digit

    // As typed; a day that the month does not have is kept for another month or year.
    int year = 0;
    int month = 0;
    int day = 0;
    QTime time;
    bool isPm = false; ///< for hours of 12
};
