// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framestream.h"

#include "frames.h"
#include "media.h"

#include <QTemporaryDir>
#include <QtTest>

#include <atomic>

namespace {

constexpr int frameCount = 200;

FramePlan planOf(const TimeRange& range, int threads = 2) {
    FramePlan plan;
    plan.range = range;
    plan.threads = threads;
    return plan;
}

QVector<int> counting(int first, int count) {
    QVector<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.append(first + i);
    return numbers;
}

/// The numbers that the pictures show, to the end.
QVector<int> shownBy(FrameStream& frames) {
    QVector<int> numbers;
    for (Frame frame = frames.next(); frame.isThere(); frame = frames.next())
        numbers.append(media::numberOf(*frame.picture));
    return numbers;
}

} // namespace

class TestFrameStream : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void givesTheRange_data();
    void givesTheRange();
    void goesOnToOtherRanges();
    void interruptEndsTheRead();
    void interruptEndsTheOpen();

private:
    QTemporaryDir folder;
    QByteArray video;
};

void TestFrameStream::initTestCase() {
    const QString path = folder.filePath("video.mp4");
    QVERIFY(media::encodeGrey(path, media::numberedPictures(frameCount), 25,
                              {"-c:v", "libx264", "-pix_fmt", "yuv420p", "-g", "10", "-bf", "0"}));
    video = path.toUtf8();
}

void TestFrameStream::givesTheRange_data() {
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<int>("first"); // of 25 frames per second
    QTest::addColumn<int>("count");
    QTest::newRow("all") << 0.0 << TimeRange().to << 0 << frameCount;
    QTest::newRow("from the first on") << 0.0 << 1.0 << 0 << 26;
    QTest::newRow("in the first group") << 0.2 << 0.28 << 5 << 3;
    QTest::newRow("far in") << 4.0 << 5.0 << 100 << 26;
    QTest::newRow("to the end") << 7.6 << TimeRange().to << 190 << 10;
    QTest::newRow("a single one") << 4.0 << 4.0 << 100 << 1;
    QTest::newRow("behind the end") << 9.0 << 10.0 << 0 << 0;
}

void TestFrameStream::givesTheRange() {
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(int, first);
    QFETCH(int, count);
    for (const int threads : {1, 2}) {
        FrameStream frames(video, planOf({from, to}, threads));
        QVERIFY2(frames.isOpen(), qPrintable(frames.errorText()));
        QCOMPARE(shownBy(frames), counting(first, count));
        if (count > 0)
            QCOMPARE(frames.firstNumber(), qint64(first));
        QCOMPARE(frames.end().error, QString());
    }
}

/// Near ones, one that lies before, and one with nothing in it.
void TestFrameStream::goesOnToOtherRanges() {
    FrameStream frames(video, planOf({1.0, 1.4}));
    QCOMPARE(shownBy(frames), counting(25, 11));
    const auto goOnTo = [&frames](double from, double to) {
        frames.goOnTo({from, to});
        return shownBy(frames);
    };
    QCOMPARE(goOnTo(1.6, 2.0), counting(40, 11));
    QCOMPARE(goOnTo(6.0, 6.4), counting(150, 11));
    QCOMPARE(frames.firstNumber(), qint64(150));
    QCOMPARE(goOnTo(3.0, 3.4), counting(75, 11));
    QCOMPARE(goOnTo(9.0, 9.4), QVector<int>());
    QCOMPARE(goOnTo(0.0, 0.4), counting(0, 11));
    QCOMPARE(frames.firstNumber(), qint64(0));
}

void TestFrameStream::interruptEndsTheRead() {
    std::atomic<bool> isInterrupted{false};
    FrameStream frames(video, {}, [&isInterrupted] { return isInterrupted.load(); });
    QVERIFY(frames.isOpen());
    QVERIFY(frames.next().isThere());
    isInterrupted = true;
    QVERIFY(shownBy(frames).size() < frameCount / 2);
}

void TestFrameStream::interruptEndsTheOpen() {
    const FrameStream frames(video, {}, [] { return true; });
    QVERIFY(!frames.isOpen());
    QVERIFY(!frames.errorText().isEmpty());
}

QTEST_GUILESS_MAIN(TestFrameStream)
#include "test_framestream.moc"
