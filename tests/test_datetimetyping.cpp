// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "datetimetyping.h"

#include "setupwindow.h"

#include <QSettings>
#include <QtTest>

#include <memory>

namespace {

QDateTime utc(int year, int month, int day, int hour, int minute, int second) {
    return {QDate(year, month, day), QTime(hour, minute, second), Qt::UTC};
}

} // namespace

// Keys go to the start time of a job setup window, as from a keyboard.
class TestDateTimeTyping : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void wholeText_data();
    void wholeText();
    void halfOfTheDay_data();
    void halfOfTheDay();
    void sections_data();
    void sections();
    void otherFormats_data();
    void otherFormats();
    void dayIsKeptForTheYear();
    void middleOfASection();
    void otherKeysAreTheToolkits();
    void clickEndsTheTyping();
    void wheelEndsTheTyping();

private:
    QDateTimeEdit& edit() const { return window->get<QDateTimeEdit>("dateTimeEdit"); }
    void show(const QLocale& locale);
    void type(const QString& text) const { QTest::keyClicks(&edit(), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(&edit(), key, modifiers);
    }
    QDateTime taken() const;

    std::unique_ptr<SetupWindow> window;
    const QDateTime before = utc(2026, 11, 22, 0, 0, 0);
};

void TestDateTimeTyping::init() {
    QSettings().clear();
    QSettings().setValue("export_timestamps", true);
    show(QLocale("en_US"));
}

void TestDateTimeTyping::cleanup() {
    QLocale::setDefault(QLocale::c());
    window.reset();
}

void TestDateTimeTyping::show(const QLocale& locale) {
    QLocale::setDefault(locale);
    window = std::make_unique<SetupWindow>();
    window->show();
    edit().setDateTime(before);
    edit().setFocus();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

/// As a job gets it: the focus has gone to a button.
QDateTime TestDateTimeTyping::taken() const {
    window->get<QPushButton>("pushButtonAdd").setFocus();
    return edit().dateTime();
}

void TestDateTimeTyping::wholeText_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDateTime>("wanted");
    for (const char* language : {"en_US", "de_DE", "fr_FR", "es_ES"}) {
        const auto row = [language](const char* text, const QDateTime& wanted) {
            QTest::addRow("%s, %s", language, text) << QString(language) << QString(text) << wanted;
        };
        row("12/3/2025 4:05:06 PM", utc(2025, 12, 3, 16, 5, 6));
        row("1/3/2025 11:59:00 am", utc(2025, 1, 3, 11, 59, 0));
        row("10/31/2025 12:30:45 PM", utc(2025, 10, 31, 12, 30, 45));
        row("10/31/2025 12:30:45 AM", utc(2025, 10, 31, 0, 30, 45));
        row("02/29/2024 09:08:07 p. m.", utc(2024, 2, 29, 21, 8, 7));
        row("3-4-25 22:15:30", utc(2025, 3, 4, 22, 15, 30));
        row("3/4/2025 00:15:30", utc(2025, 3, 4, 0, 15, 30));
        row("3/4/2025", utc(2025, 3, 4, 0, 0, 0));
        row("3/4/2025 7 PM", utc(2025, 3, 4, 19, 0, 0));
    }
}

void TestDateTimeTyping::wholeText() {
    QFETCH(QString, language);
    QFETCH(QString, text);
    show(QLocale(language));
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
    QTEST(taken(), "wanted");
}

void TestDateTimeTyping::halfOfTheDay_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    for (const char* language : {"en_US", "de_DE", "fr_FR", "es_ES"}) {
        for (const char* text : {"P", "p", "PM", "pm", " PM", "P. M."})
            QTest::addRow("%s, \"%s\"", language, text) << QString(language) << QString(text);
    }
}

void TestDateTimeTyping::halfOfTheDay() {
    QFETCH(QString, language);
    QFETCH(QString, text);
    show(QLocale(language));
    edit().setSelectedSection(QDateTimeEdit::AmPmSection);
    type(text);
    QCOMPARE(taken(), utc(2026, 11, 22, 12, 0, 0));
    edit().setFocus();
    edit().setSelectedSection(QDateTimeEdit::AmPmSection);
    type(text.toUpper().replace('P', 'A'));
    QCOMPARE(taken(), before);
}

void TestDateTimeTyping::sections_data() {
    QTest::addColumn<int>("section");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDateTime>("wanted");
    const auto row = [](const char* name, QDateTimeEdit::Section section, const char* text,
                        const QDateTime& wanted) {
        QTest::newRow(name) << int(section) << QString(text) << wanted;
    };
    row("month alone", QDateTimeEdit::MonthSection, "1", utc(2026, 1, 22, 0, 0, 0));
    row("month and day", QDateTimeEdit::MonthSection, "12/24", utc(2026, 12, 24, 0, 0, 0));
    row("day", QDateTimeEdit::DaySection, "5", utc(2026, 11, 5, 0, 0, 0));
    row("year", QDateTimeEdit::YearSection, "2019", utc(2019, 11, 22, 0, 0, 0));
    row("hour and half", QDateTimeEdit::HourSection, "7:08:09 PM", utc(2026, 11, 22, 19, 8, 9));
    row("two digits of hour", QDateTimeEdit::HourSection, "10:08:09 PM",
        utc(2026, 11, 22, 22, 8, 9));
    row("leading zero", QDateTimeEdit::HourSection, "09:00", utc(2026, 11, 22, 9, 0, 0));
    row("hour of 24", QDateTimeEdit::HourSection, "16", utc(2026, 11, 22, 16, 0, 0));
    row("second", QDateTimeEdit::SecondSection, "59", utc(2026, 11, 22, 0, 0, 59));
    row("digits without separators", QDateTimeEdit::MonthSection, "12242025",
        utc(2025, 12, 24, 0, 0, 0));
    row("what no section has", QDateTimeEdit::MinuteSection, "5x7", utc(2026, 11, 22, 0, 57, 0));
}

void TestDateTimeTyping::sections() {
    QFETCH(int, section);
    QFETCH(QString, text);
    edit().setSelectedSection(QDateTimeEdit::Section(section));
    type(text);
    QTEST(taken(), "wanted");
}

void TestDateTimeTyping::otherFormats_data() {
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDateTime>("wanted");
    // Those that the window's languages have.
    for (const char* format : {"dd.MM.yyyy HH:mm:ss", "dd/MM/yyyy HH:mm:ss"}) {
        const auto row = [format](const char* text, const QDateTime& wanted) {
            QTest::addRow("%s, %s", format, text) << QString(format) << QString(text) << wanted;
        };
        row("03.12.2025 16:05:06", utc(2025, 12, 3, 16, 5, 6));
        row("3.12.2025 4:05:06", utc(2025, 12, 3, 4, 5, 6));
        row("3/12/2025 12:30:45", utc(2025, 12, 3, 12, 30, 45));
        row("31/12/2025 00:30", utc(2025, 12, 31, 0, 30, 0));
        row("29.02.2024 23:59:59", utc(2024, 2, 29, 23, 59, 59));
        row("1.2.24 7 pm", utc(2024, 2, 1, 19, 0, 0));
    }
}

void TestDateTimeTyping::otherFormats() {
    QFETCH(QString, format);
    QFETCH(QString, text);
    edit().setDisplayFormat(format);
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
    QTEST(taken(), "wanted");
}

void TestDateTimeTyping::dayIsKeptForTheYear() {
    edit().setSelectedSection(QDateTimeEdit::MonthSection);
    type("2/29/");
    QCOMPARE(edit().date(), QDate(2026, 2, 28)); // until the year is there
    type("2028");
    QCOMPARE(taken(), utc(2028, 2, 29, 0, 0, 0));
}

void TestDateTimeTyping::middleOfASection() {
    // The last digit of the day is another one, then the year goes on.
    edit().setSelectedSection(QDateTimeEdit::DaySection);
    press(Qt::Key_Backspace);
    type("15/2025");
    QCOMPARE(taken(), utc(2025, 11, 15, 0, 0, 0));
}

void TestDateTimeTyping::otherKeysAreTheToolkits() {
    edit().setSelectedSection(QDateTimeEdit::HourSection);
    type("4");
    press(Qt::Key_Up);
    QCOMPARE(edit().time(), QTime(4, 1)); // the minutes are next
    press(Qt::Key_Escape);
    QVERIFY(!window->isVisible());
}

void TestDateTimeTyping::clickEndsTheTyping() {
    edit().setSelectedSection(QDateTimeEdit::MonthSection);
    type("1");
    QTest::mouseClick(edit().findChild<QLineEdit*>(), Qt::LeftButton);
    edit().setSelectedSection(QDateTimeEdit::YearSection);
    type("2019");
    QCOMPARE(taken(), utc(2019, 1, 22, 0, 0, 0));
}

void TestDateTimeTyping::wheelEndsTheTyping() {
    edit().setSelectedSection(QDateTimeEdit::MonthSection);
    type("1");
    const QPoint place = edit().rect().center();
    QWheelEvent wheel(place, edit().mapToGlobal(place), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&edit(), &wheel);
    QCOMPARE(edit().date().month(), 2);
    type("/");
    QCOMPARE(taken(), utc(2026, 2, 22, 0, 0, 0));
}

QTEST_MAIN(TestDateTimeTyping)
#include "test_datetimetyping.moc"
