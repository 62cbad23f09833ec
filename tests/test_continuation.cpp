// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "continuation.h"

#include "filenaming.h"

#include <QtTest>

namespace {

const QDateTime noon{QDate(2026, 11, 16), QTime(12, 0), Qt::UTC};

/// A minute at 25 pictures per second, of which the decoder has kept two; its times begin at 0.
SequenceFile minute(const char* path, double startOfClock = -1.0) {
    SequenceFile file;
    file.path = path;
    file.codec = "h264";
    file.size = QSize(640, 480);
    file.last = 59.88;
    file.interval = 0.04;
    if (startOfClock >= 0.0)
        file.start = {noon.addMSecs(qint64(startOfClock * 1000.0)),
                      StartSource::Name,
                      StartCertainty::Sure,
                      {}};
    return file;
}

/// With all its times `seconds` later.
SequenceFile later(SequenceFile file, double seconds) {
    file.begin += seconds;
    file.first += seconds;
    file.last += seconds;
    return file;
}

using Sign = Continuation::Sign;

} // namespace

Q_DECLARE_METATYPE(Continuation::Sign)
Q_DECLARE_METATYPE(SequenceFile)

class TestContinuation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatGoesOn_data();
    void tellsWhatGoesOn();
    void gapIsTold();
    void clocksOfOtherZones();
    void hourThatComesTwice();
    void toleranceIsThePersons();
    void namesAreComparedByTheirNumbers();
    void namesAreOrderedByTheirNumbers();
};

void TestContinuation::tellsWhatGoesOn_data() {
    QTest::addColumn<SequenceFile>("before");
    QTest::addColumn<SequenceFile>("next");
    QTest::addColumn<Continuation::Sign>("sign");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const SequenceFile& before, const SequenceFile& next,
                        Sign sign, const char* reason) {
        QTest::newRow(name) << before << next << sign << QString(reason);
    };
    const SequenceFile first = minute("/card/1200.mp4", 0.0);
    const char* unknown = "it is not known when they began, and its time stamps do not go on";
    row("by clocks", first, minute("/card/1201.mp4", 60.0), Sign::Clocks,
        "it begins 0.1 s after its end");
    row("clocks in whole seconds", first, minute("/card/1201.mp4", 59.0), Sign::Clocks,
        "it begins 0.9 s before its end");
    row("a file is missing", first, minute("/card/1202.mp4", 120.0), Sign::None,
        "it begins 60.1 s after its end");
    row("two cameras at once", first, minute("/card/1200b.mp4", 0.0), Sign::None,
        "it begins 59.9 s before its end: they overlap, or a clock was set back");
    row("a clock set back", first, minute("/card/1101.mp4", 30.0), Sign::None,
        "it begins 29.9 s before its end: they overlap, or a clock was set back");
    row("by stamps", minute("/card/a1.ts"), later(minute("/card/a2.ts"), 60.0), Sign::Stamps,
        "its time stamps go on");
    row("stamps begin anew", minute("/card/a1.ts"), minute("/card/a2.ts"), Sign::None, unknown);
    row("stamps with a hole", minute("/card/a1.ts"), later(minute("/card/a2.ts"), 61.0), Sign::None,
        unknown);
    row("stamps that overlap", minute("/card/a1.ts"), later(minute("/card/a2.ts"), 59.0),
        Sign::None, unknown);
    row("stamps agree by chance", first, later(minute("/card/1300.mp4", 3600.0), 60.0), Sign::None,
        "it begins 3540.1 s after its end");
    SequenceFile copied = later(minute("/card/1300.mp4", 3600.0), 60.0);
    copied.start.certainty = StartCertainty::Rough;
    row("stamps against the time of a copy", first, copied, Sign::Stamps, "its time stamps go on");
    SequenceFile distant = later(copied, 60.0);
    row("stamps at a distance, of a copy", first, distant, Sign::None,
        "its time stamps begin 60.1 s after those of the other end");
    SequenceFile head = minute("/card/p1.mp4", 0.0);
    head.start.source = StartSource::Container;
    head.start.certainty = StartCertainty::Likely;
    SequenceFile piece = later(head, 60.0);
    piece.path = "/card/p2.mp4";
    row("pieces with the head of the whole", head, piece, Sign::Stamps, "its time stamps go on");
    piece.start.time = piece.start.time.addSecs(3600);
    row("heads of two recordings", head, piece, Sign::None, "it begins 3540.1 s after its end");
    row("one clock is unknown", first, minute("/card/1201.mp4"), Sign::None, unknown);

    SequenceFile other = minute("/card/1201.mp4", 60.0);
    other.codec = "hevc";
    row("another codec", first, other, Sign::None, "its codec is hevc and not h264");
    other = minute("/card/1201.mp4", 60.0);
    other.size = QSize(1920, 1080);
    row("another size", first, other, Sign::None, "its pictures are 1920 x 1080 and not 640 x 480");
    other = minute("/card/1201.mp4", 60.0);
    other.isQuick = true;
    row("a quick look", first, other, Sign::None,
        "of one of them, key frames alone were looked at");
    other = later(minute("/card/a2.264"), 60.0);
    other.hasOwnTimes = false;
    row("no times of its own", minute("/card/a1.264"), other, Sign::None,
        "one of them has no times of its own");

    row("named otherwise in one folder", first, minute("/card/back.mp4", 60.0), Sign::Clocks,
        "it begins 0.1 s after its end");
    row("another folder, named alike", minute("/card/16/2359.mp4", 0.0),
        minute("/card/17/0000.mp4", 60.0), Sign::Clocks, "it begins 0.1 s after its end");
    row("another folder, named otherwise", minute("/front/1200.mp4", 0.0),
        minute("/back/1201.mp4", 60.0), Sign::None,
        "it lies in another folder and is named "
        "otherwise");
}

void TestContinuation::tellsWhatGoesOn() {
    QFETCH(SequenceFile, before);
    QFETCH(SequenceFile, next);
    const Continuation found = continuationOf(before, next, 2.0);
    QTEST(found.sign, "sign");
    QTEST(found.reason, "reason");
    QCOMPARE(found.isThere(), found.sign != Sign::None);
}

void TestContinuation::gapIsTold() {
    const auto gap = [](double start) {
        return continuationOf(minute("/a/1.mp4", 0.0), minute("/a/2.mp4", start), 2.0).gap;
    };
    QVERIFY(qAbs(gap(61.5) - 1.58) < 1e-9); // 61.5 s behind the start of 59.92 s
    QVERIFY(qAbs(gap(58.5) + 1.42) < 1e-9);
}

void TestContinuation::clocksOfOtherZones() {
    SequenceFile next = minute("/a/2.mp4", 60.0);
    next.start.time = next.start.time.toOffsetFromUtc(3600); // the same moment
    QVERIFY(continuationOf(minute("/a/1.mp4", 0.0), next, 2.0).isThere());
    next.start.time.setOffsetFromUtc(7200); // what that clock shows is an hour earlier
    QVERIFY(!continuationOf(minute("/a/1.mp4", 0.0), next, 2.0).isThere());
}

void TestContinuation::hourThatComesTwice() {
    // 02:59 in summer, and 02:00 behind it, of which the name does not tell that it is winter.
    SequenceFile next = minute("/a/0200.mp4", 0.0);
    next.start.doubts = {StartDoubt::HourTwice};
    const SequenceFile before = minute("/a/0259.mp4", 3540.0);
    QVERIFY(continuationOf(before, next, 2.0).isThere());
    next.start.doubts.clear();
    QVERIFY(!continuationOf(before, next, 2.0).isThere());
}

void TestContinuation::toleranceIsThePersons() {
    const SequenceFile before = minute("/a/1.mp4", 0.0);
    QVERIFY(!continuationOf(before, minute("/a/2.mp4", 69.0), 2.0).isThere());
    QVERIFY(continuationOf(before, minute("/a/2.mp4", 69.0), 10.0).isThere());
    QVERIFY(!continuationOf(before, minute("/a/2.mp4", 60.0), 0.0).isThere());
}

void TestContinuation::namesAreComparedByTheirNumbers() {
    QCOMPARE(differingNumbers("/a/cam1-1200.mp4", "/a/cam1-1201.mp4"), 1);
    QCOMPARE(differingNumbers("/a/cam1-1200.mp4", "/a/cam2-1201.mp4"), 2);
    QCOMPARE(differingNumbers("/a/1.mp4", "/a/0001.mp4"), 1); // not the same name
    QCOMPARE(namingOf("/a/1.mp4"), namingOf("/a/0002.mp4"));
    QVERIFY(differingNumbers("/a/front1.mp4", "/a/back1.mp4") > 1000);
    QVERIFY(namingOf("/a/1.mp4") != namingOf("/a/1.mkv"));
    QVERIFY(namingOf("/a/x.mp4") != namingOf("/a/1.mp4"));
    QCOMPARE(folderOf("/a/1/2.mp4"), QString("/a/1/"));
}

void TestContinuation::namesAreOrderedByTheirNumbers() {
    QVERIFY(isNumberedBefore("/a/9.mp4", "/a/10.mp4"));
    QVERIFY(!isNumberedBefore("/a/10.mp4", "/a/9.mp4"));
    QVERIFY(isNumberedBefore("/a/2/9.mp4", "/a/10/1.mp4"));
    QVERIFY(isNumberedBefore("/a/0009.mp4", "/a/10.mp4"));
    QVERIFY(isNumberedBefore("/a/99999999999999999998.mp4", "/a/99999999999999999999.mp4"));
    QVERIFY(!isNumberedBefore("/a/007.mp4", "/a/7.mp4")); // of one number, as they come
    QVERIFY(!isNumberedBefore("/a/7.mp4", "/a/007.mp4"));
    QVERIFY(areNumbersOfOtherLengths("/a/9.mp4", "/a/10.mp4"));
    QVERIFY(!areNumbersOfOtherLengths("/a/31-12-2025.mp4", "/a/01-01-2026.mp4"));
}

QTEST_GUILESS_MAIN(TestContinuation)
#include "test_continuation.moc"
