// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sequenceline.h"

#include <QtTest>

namespace {

/// From `begin` to `last`, at ten pictures per second.
SequenceFile file(double begin, double last) {
    SequenceFile made;
    made.begin = begin;
    made.first = begin;
    made.last = last;
    made.interval = 0.1;
    return made;
}

const Continuation byStamps{Continuation::Sign::Stamps, 0.0, {}};

Continuation byClocks(double gap) {
    return {Continuation::Sign::Clocks, gap, {}};
}

/// "0: 1 - 2, 1: 0 - 3"
QString textOf(const QVector<LineStretch>& stretches) {
    QStringList texts;
    for (const LineStretch& stretch : stretches)
        texts +=
            QStringLiteral("%1: %2 - %3").arg(stretch.file).arg(stretch.start).arg(stretch.end);
    return texts.join(", ");
}

} // namespace

class TestSequenceLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stampsAreNotShifted();
    void clocksPutOneBehindTheOther();
    void whatADecoderHeldBackIsNoGap();
    void stretchesLieInTheirFiles_data();
    void stretchesLieInTheirFiles();
    void gapsAreNobodys();
};

void TestSequenceLine::stampsAreNotShifted() {
    SequenceLine line;
    line.append(file(10.0, 19.7)); // up to 20.0, of which the decoder has kept two pictures
    line.append(file(20.2, 29.9), byStamps);
    QCOMPARE(line.placed(1).shift, 0.0);
    QCOMPARE(line.placed(1).begin, 20.2);
    QVERIFY(qAbs(line.offsetOf(1) - 10.2) < 1e-9);
}

void TestSequenceLine::clocksPutOneBehindTheOther() {
    SequenceLine line;
    line.append(file(5.0, 14.9)); // up to 15.0
    line.append(file(0.0, 9.9), byClocks(0.0));
    line.append(file(0.0, 9.9), byClocks(1.5));
    line.append(file(0.0, 9.9), byClocks(-0.8)); // which a clock of whole seconds may say
    QVERIFY(qAbs(line.placed(1).begin - 15.0) < 1e-9);
    QVERIFY(qAbs(line.placed(2).begin - 26.5) < 1e-9);
    QVERIFY(qAbs(line.placed(3).begin - 36.5) < 1e-9);
    QVERIFY(qAbs(line.offsetOf(3) - 31.5) < 1e-9);
    // What goes on by its stamps goes on where the one before was put.
    line.append(file(10.0, 19.9), byStamps);
    QVERIFY(qAbs(line.placed(4).begin - 46.5) < 1e-9);
}

void TestSequenceLine::whatADecoderHeldBackIsNoGap() {
    SequenceLine line;
    line.append(file(0.0, 9.9));
    SequenceFile delayed = file(0.0, 9.9);
    delayed.first = 0.2;
    line.append(delayed, byClocks(0.0));
    QVERIFY(qAbs(line.placed(1).begin - 10.2) < 1e-9);
}

void TestSequenceLine::stretchesLieInTheirFiles_data() {
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::addColumn<QString>("stretches");
    QTest::newRow("in the first") << 1.0 << 4.0 << "0: 1 - 4";
    QTest::newRow("before the first picture") << -2.0 << 4.0 << "0: -2 - 4";
    QTest::newRow("in two") << 8.0 << 14.0 << "0: 8 - 10, 1: 0 - 4";
    QTest::newRow("in three") << 8.0 << 24.0 << "0: 8 - 10, 1: 0 - 10, 2: 0 - 4";
    QTest::newRow("in the second") << 12.0 << 18.0 << "1: 2 - 8";
    QTest::newRow("to the end of a file") << 2.0 << 10.0 << "0: 2 - 10";
    QTest::newRow("from the beginning of a file") << 10.0 << 12.0 << "1: 0 - 2";
    QTest::newRow("all of them") << 0.0 << 30.0 << "0: 0 - 10, 1: 0 - 10, 2: 0 - 10";
    QTest::newRow("without a length") << 12.0 << 12.0 << "1: 2 - 2";
}

void TestSequenceLine::stretchesLieInTheirFiles() {
    SequenceLine line;
    line.append(file(5.0, 14.9));
    line.append(file(0.0, 9.9), byClocks(0.0));
    line.append(file(0.0, 9.9), byClocks(0.0));
    QFETCH(double, start);
    QFETCH(double, end);
    QTEST(textOf(line.stretchesOf(start, end)), "stretches");
}

void TestSequenceLine::gapsAreNobodys() {
    SequenceLine line;
    line.append(file(0.0, 9.9));
    line.append(file(0.0, 9.9), byClocks(2.0)); // from 12.0 on
    QCOMPARE(textOf(line.stretchesOf(8.0, 14.0)), QString("0: 8 - 10, 1: 0 - 2"));
    QCOMPARE(textOf(line.stretchesOf(11.0, 14.0)), QString("1: 0 - 2"));
    QCOMPARE(textOf(line.stretchesOf(8.0, 11.0)), QString("0: 8 - 10"));
}

QTEST_GUILESS_MAIN(TestSequenceLine)
#include "test_sequenceline.moc"
