// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictureclock.h"

#include <QVector>
#include <QtTest>

namespace {

constexpr double missing = -102481911520608.62; // as the engine shows it for units of 1/90000 s

StoredTime at(double seconds) {
    return {seconds, false, 0.0};
}

StoredTime none(double headerFrameRate = 0.0) {
    return {missing, true, headerFrameRate};
}

QVector<double> times(PictureClock& clock, const QVector<StoredTime>& stored) {
    QVector<double> found;
    for (const StoredTime& time : stored)
        found.append(clock.next(time).value_or(-1.0));
    return found;
}

} // namespace

class TestPictureClock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ownTimesAreKept();
    void ownTimesAreTakenAsTheyCome();
    void numberedAtTheRateAskedFor();
    void numberedAtTheRateOfTheHeaders();
    void rateOfTheHeadersIsForStreamsWithoutTimes();
    void headersThatTellNoRate_data();
    void headersThatTellNoRate();
    void firstTimeIsMissing();
    void laterTimesAreMissing();
    void standingStill();
};

void TestPictureClock::ownTimesAreKept() {
    for (const bool mustBeUsable : {false, true}) {
        PictureClock clock({0.0, mustBeUsable});
        // Also where they run backwards.
        QCOMPARE(times(clock, {at(1.4), at(1.44), at(1.42), at(0.0)}),
                 QVector<double>({1.4, 1.44, 1.42, 0.0}));
        QCOMPARE(clock.frameRate(), 0.0);
        QVERIFY(clock.isRunning());
    }
}

void TestPictureClock::ownTimesAreTakenAsTheyCome() {
    PictureClock clock({0.0, false});
    QCOMPARE(times(clock, {none(25.0), none(25.0)}), QVector<double>({missing, missing}));
    QVERIFY(clock.isRunning());
}

void TestPictureClock::numberedAtTheRateAskedFor() {
    PictureClock clock({12.5, true});
    QCOMPARE(times(clock, {none(), at(7.0), none(25.0), at(-3.0)}),
             QVector<double>({0.0, 0.08, 0.16, 0.24}));
    QCOMPARE(clock.frameRate(), 12.5);
}

void TestPictureClock::numberedAtTheRateOfTheHeaders() {
    PictureClock clock({0.0, true});
    QCOMPARE(times(clock, {none(10.0), none(10.0), none(20.0)}), QVector<double>({0.0, 0.1, 0.2}));
    QCOMPARE(clock.frameRate(), 10.0);
}

void TestPictureClock::rateOfTheHeadersIsForStreamsWithoutTimes() {
    PictureClock clock({0.0, true});
    QCOMPARE(times(clock, {at(5.0), {missing, true, 10.0}}), QVector<double>({5.0, 5.0}));
    QCOMPARE(clock.frameRate(), 0.0);
}

void TestPictureClock::headersThatTellNoRate_data() {
    QTest::addColumn<double>("rate");
    QTest::addColumn<bool>("isUsed");
    QTest::newRow("none") << 0.0 << false;
    QTest::newRow("too slow") << 0.0099 << false;
    QTest::newRow("slowest") << 0.01 << true;
    QTest::newRow("fastest") << 1000.0 << true;
    QTest::newRow("a clock's") << 45000.0 << false;
    QTest::newRow("negative") << -25.0 << false;
    QTest::newRow("not a number") << qQNaN() << false;
}

void TestPictureClock::headersThatTellNoRate() {
    QFETCH(double, rate);
    PictureClock clock({0.0, true});
    QTEST(clock.next(none(rate)).has_value(), "isUsed");
}

void TestPictureClock::firstTimeIsMissing() {
    PictureClock clock({0.0, true});
    QVERIFY(!clock.next(none()));
}

void TestPictureClock::laterTimesAreMissing() {
    PictureClock clock({0.0, true});
    QCOMPARE(times(clock, {at(1.0), none(), none(), at(1.12), none()}),
             QVector<double>({1.0, 1.0, 1.0, 1.12, 1.12}));
    QVERIFY(clock.isRunning());
}

void TestPictureClock::standingStill() {
    PictureClock clock({0.0, true});
    times(clock, {at(3.0), at(3.0), none()});
    QVERIFY(!clock.isRunning());
    times(clock, {at(3.04)});
    QVERIFY(clock.isRunning());
}

QTEST_GUILESS_MAIN(TestPictureClock)
#include "test_pictureclock.moc"
