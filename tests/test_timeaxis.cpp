// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeaxis.h"

#include <QtTest>

#include <cmath>

class TestTimeAxis : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void marksAreRound_data();
    void marksAreRound();
    void marksTellTheClock();
    void marksOfAPart();
};

void TestTimeAxis::marksAreRound_data() {
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("nothing") << 0.0 << QStringList();
    QTest::newRow("no number") << std::nan("") << QStringList();
    QTest::newRow("absurd") << 1e300 << QStringList();
    QTest::newRow("seconds") << 4.5
                             << QStringList{"0:00:00", "0:00:01", "0:00:02", "0:00:03", "0:00:04"};
    QTest::newRow("minutes") << 700.0 << QStringList{"0:00:00", "0:02:00", "0:04:00",
                                                     "0:06:00", "0:08:00", "0:10:00"};
    QTest::newRow("hours") << 3 * 3600.0 + 1
                           << QStringList{"0:00:00", "0:30:00", "1:00:00", "1:30:00",
                                          "2:00:00", "2:30:00", "3:00:00"};
    QTest::newRow("days") << 100 * 3600.0
                          << QStringList{"0:00:00", "24:00:00", "48:00:00", "72:00:00", "96:00:00"};
}

void TestTimeAxis::marksAreRound() {
    QFETCH(double, seconds);
    QStringList found;
    for (const TimeMark& mark : timeMarks(seconds, {}))
        found.append(mark.label);
    QTEST(found, "labels");
}

void TestTimeAxis::marksTellTheClock() {
    const QDateTime evening(QDate(2026, 11, 16), QTime(21, 40), Qt::UTC);
    const QVector<TimeMark> marks = timeMarks(4 * 3600.0, evening);
    QStringList labels;
    for (const TimeMark& mark : marks)
        labels.append(mark.label);
    QCOMPARE(labels, QStringList({"22:00", "22:30", "23:00", "23:30", "2026-11-17", "00:30",
                                  "01:00", "01:30"}));
    QCOMPARE(marks.first().seconds, 1200.0);
}

void TestTimeAxis::marksOfAPart() {
    QStringList labels;
    for (const TimeMark& mark : timeMarks(3601.5, 3606.0, {}))
        labels.append(mark.label);
    QCOMPARE(labels, QStringList({"1:00:02", "1:00:03", "1:00:04", "1:00:05", "1:00:06"}));
    const QDateTime evening(QDate(2026, 11, 16), QTime(21, 40), Qt::UTC);
    const QVector<TimeMark> marks = timeMarks(3600.0, 3700.0, evening);
    QCOMPARE(marks.first().seconds, 3600.0);
    QCOMPARE(marks.first().label, QString("22:40:00"));
    QCOMPARE(marks.last().label, QString("22:41:30"));
}

QTEST_GUILESS_MAIN(TestTimeAxis)
#include "test_timeaxis.moc"
