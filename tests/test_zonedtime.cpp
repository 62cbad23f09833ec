// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Clocks on the wall and their zones: hours that are missing and those that come twice.

#include "zonedtime.h"

#include <QtTest>

class TestZonedTime : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void clocksAreReadInTheirZone_data();
    void clocksAreReadInTheirZone();
    void whatIsNoTimeStaysNone();
    void zonesAreFound_data();
    void zonesAreFound();
    void machineHasAZone_data();
    void machineHasAZone();
};

void TestZonedTime::clocksAreReadInTheirZone_data() {
    QTest::addColumn<QString>("zone");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("utc");
    QTest::addColumn<int>("doubt"); // -1: none
    const auto row = [](const char* name, const char* zone, const char* shown, const char* utc,
                        int doubt = -1) {
        QTest::newRow(name) << QString(zone) << QString(shown) << QString(utc) << doubt;
    };
    const int missing = int(StartDoubt::HourMissing);
    const int twice = int(StartDoubt::HourTwice);
    row("Berlin, winter", "Europe/Berlin", "2026-01-10T12:00:00", "2026-01-10T11:00:00Z");
    row("Berlin, summer", "Europe/Berlin", "2026-07-10T12:00:00", "2026-07-10T10:00:00Z");
    row("Berlin, before", "Europe/Berlin", "2026-03-29T01:59:59", "2026-03-29T00:59:59Z");
    row("Berlin, missing", "Europe/Berlin", "2026-03-29T02:30:00", "2026-03-29T01:30:00Z", missing);
    row("Berlin, behind", "Europe/Berlin", "2026-03-29T03:00:00", "2026-03-29T01:00:00Z");
    row("Berlin, before both", "Europe/Berlin", "2026-10-25T01:59:59", "2026-10-24T23:59:59Z");
    row("Berlin, twice", "Europe/Berlin", "2026-10-25T02:30:00", "2026-10-25T00:30:00Z", twice);
    row("Berlin, behind both", "Europe/Berlin", "2026-10-25T03:00:00", "2026-10-25T02:00:00Z");
    row("New York, missing", "America/New_York", "2026-03-08T02:30:00", "2026-03-08T07:30:00Z",
        missing);
    row("New York, twice", "America/New_York", "2026-11-01T01:30:00", "2026-11-01T05:30:00Z",
        twice);
    row("New York, behind both", "America/New_York", "2026-11-01T02:00:00", "2026-11-01T07:00:00Z");
    // By half an hour, in the south: forward in October, back in April.
    row("Lord Howe, missing", "Australia/Lord_Howe", "2026-10-04T02:15:00", "2026-10-03T15:45:00Z",
        missing);
    row("Lord Howe, behind", "Australia/Lord_Howe", "2026-10-04T02:30:00", "2026-10-03T15:30:00Z");
    row("Lord Howe, twice", "Australia/Lord_Howe", "2026-04-05T01:45:00", "2026-04-04T14:45:00Z",
        twice);
    row("Lord Howe, between", "Australia/Lord_Howe", "2026-04-05T01:15:00", "2026-04-04T14:15:00Z");
    row("Kolkata", "Asia/Kolkata", "2026-11-22T20:30:15", "2026-11-22T15:00:15Z");
    row("UTC", "UTC", "2026-03-29T02:30:00", "2026-03-29T02:30:00Z");
}

void TestZonedTime::clocksAreReadInTheirZone() {
    QFETCH(QString, zone);
    QFETCH(QString, shown);
    QFETCH(QString, utc);
    QFETCH(int, doubt);
    const QDateTime clock = QDateTime::fromString(shown + 'Z', Qt::ISODate);
    const ZonedTime zoned = shownIn(*zoneNamed(zone), clock.date(), clock.time());
    QCOMPARE(zoned.time.toUTC().toString(Qt::ISODate), utc);
    QCOMPARE(zoned.doubt ? int(*zoned.doubt) : -1, doubt);
    if (doubt != int(StartDoubt::HourMissing))
        QCOMPARE(zoned.time.time(), clock.time());
}

void TestZonedTime::whatIsNoTimeStaysNone() {
    QVERIFY(!shownIn(QTimeZone::utc(), QDate(2026, 2, 30), QTime(1, 0)).time.isValid());
    QVERIFY(!shownIn(QTimeZone::utc(), QDate(2026, 2, 3), QTime(24, 0)).time.isValid());
    QVERIFY(!shownIn(QTimeZone(), QDate(2026, 2, 3), QTime(1, 0)).time.isValid());
}

void TestZonedTime::zonesAreFound_data() {
    QTest::addColumn<bool>("isThere");
    for (const char* zone : {"Europe/Berlin", "America/Argentina/Buenos_Aires", "UTC", "Etc/GMT+5",
                             "UTC+05:30", "Asia/Kolkata"})
        QTest::newRow(zone) << true;
    for (const char* zone : {"", "nowhere", "Europe", "Europe/berlin ", "../../../etc/passwd",
                             "/etc/localtime", "Europe/../Berlin", "Europe/Berlin;", "+02:00", "5"})
        QTest::newRow(zone) << false;
    QTest::newRow(QByteArray(5000, 'A').constData()) << false;
}

void TestZonedTime::zonesAreFound() {
    QFETCH(bool, isThere);
    QCOMPARE(zoneNamed(QTest::currentDataTag()).has_value(), isThere);
}

void TestZonedTime::machineHasAZone_data() {
    QTest::addColumn<int>("hours");
    QTest::newRow("Asia/Tokyo") << 9;
    QTest::newRow("UTC") << 0;
    QTest::newRow("MSK-3") << 3; // which is a rule and no name
}

void TestZonedTime::machineHasAZone() {
    QFETCH(int, hours);
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", QTest::currentDataTag());
    tzset();
    const QTimeZone zone = zoneOfMachine();
    qputenv("TZ", before);
    if (before.isNull())
        qunsetenv("TZ");
    tzset();
    QVERIFY(zone.isValid());
    QCOMPARE(zone.offsetFromUtc(QDateTime::currentDateTimeUtc()), hours * 3600);
}

QTEST_GUILESS_MAIN(TestZonedTime)
#include "test_zonedtime.moc"
