// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recapclips.h"

#include <QtTest>

#include <deque>

namespace {

StreamDescription stream(int width, int height, Ratio rate = {25, 1}, Ratio pixel = {}) {
    StreamDescription description;
    description.size = {width, height};
    description.frameRate = rate;
    description.pixelAspect = pixel;
    return description;
}

RecapClip clipOf(const StreamDescription& description) {
    return {nullptr, 0, 0, {}, description};
}

} // namespace

Q_DECLARE_METATYPE(StreamDescription)

class TestRecapClips : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sizeOfMost_data();
    void sizeOfMost();
    void rateOfMost_data();
    void rateOfMost();
    void inTheOrderOfTheCall();
    void inTheOrderThatIsTold();
    void theClockIsThatOfTheWall();
};

void TestRecapClips::sizeOfMost_data() {
    QTest::addColumn<QVector<StreamDescription>>("streams");
    QTest::addColumn<QSize>("size");
    using All = QVector<StreamDescription>;
    QTest::newRow("one") << All{stream(640, 480)} << QSize(640, 480);
    QTest::newRow("two of three") << All{stream(1920, 1080), stream(640, 480), stream(640, 480)}
                                  << QSize(640, 480);
    QTest::newRow("as many: the larger")
        << All{stream(640, 480), stream(1280, 720)} << QSize(1280, 720);
    QTest::newRow("odd") << All{stream(321, 241)} << QSize(322, 242);
    QTest::newRow("tiny") << All{stream(1, 1)} << QSize(2, 2);
    QTest::newRow("unknown") << All{stream(0, 0)} << QSize(2, 2);
    QTest::newRow("wide pixels") << All{stream(720, 576, {25, 1}, {16, 11})} << QSize(1048, 576);
    QTest::newRow("beyond an encoder") << All{stream(16384, 8192)} << QSize(4096, 2048);
    QTest::newRow("a pixel like a line")
        << All{stream(1000, 1000, {25, 1}, {1000000, 1})} << QSize(4096, 2);
}

void TestRecapClips::sizeOfMost() {
    QFETCH(QVector<StreamDescription>, streams);
    std::vector<RecapClip> clips;
    for (const StreamDescription& description : streams)
        clips.push_back(clipOf(description));
    QTEST(filmOf(clips, {}).size, "size");
}

void TestRecapClips::rateOfMost_data() {
    QTest::addColumn<QVector<StreamDescription>>("streams");
    QTest::addColumn<QString>("rate");
    using All = QVector<StreamDescription>;
    QTest::newRow("exact") << All{stream(8, 8, {30000, 1001})} << "30000/1001";
    QTest::newRow("two of three") << All{stream(8, 8, {30, 1}), stream(8, 8, {10, 1}),
                                         stream(8, 8, {10, 1})}
                                  << "10/1";
    QTest::newRow("unknown") << All{stream(8, 8, {0, 1})} << "25/1";
    QTest::newRow("a clock's") << All{stream(8, 8, {90000, 1})} << "60/1";
    QTest::newRow("a picture a minute") << All{stream(8, 8, {1, 60})} << "1/1";
}

void TestRecapClips::rateOfMost() {
    QFETCH(QVector<StreamDescription>, streams);
    std::vector<RecapClip> clips;
    for (const StreamDescription& description : streams)
        clips.push_back(clipOf(description));
    RecapOptions options;
    options.speed = 4.0;
    const Film film = filmOf(clips, options);
    QTEST(film.rate, "rate");
    QCOMPARE(film.speed, 4.0);
}

void TestRecapClips::inTheOrderOfTheCall() {
    std::deque<Recording> recordings(2);
    recordings[1].place = 1;
    RecapClips clips;
    for (const auto& [place, number] : {std::pair(1, 0), std::pair(0, 1), std::pair(0, 0)}) {
        ClipLine line{recordings[std::size_t(place)], {}, {}};
        line.clip.index = number;
        clips.add(line);
    }
    QStringList names;
    for (const RecapClip& clip : clips.inOrder(ClipCalls::AnyRecording))
        names += QStringLiteral("%1.%2").arg(clip.recording->place).arg(clip.number);
    QCOMPARE(names, QStringList({"0.0", "0.1", "1.0"}));
}

void TestRecapClips::inTheOrderThatIsTold() {
    std::deque<Recording> recordings(2);
    recordings[1].place = 1;
    RecapClips clips;
    for (const int place : {1, 0}) {
        ClipLine line{recordings[std::size_t(place)], {}, {}};
        clips.add(line);
    }
    QCOMPARE(clips.inOrder(ClipCalls::InOrder).front().recording->place, 1);
}

void TestRecapClips::theClockIsThatOfTheWall() {
    Recording recording;
    recording.path = "/videos/garden.mp4";
    ClipLine line{recording, {}, {}};
    line.clip.start = 2.5;
    line.frameRate = 12.5;
    RecapClips clips;
    clips.add(line);
    recording.start.time = {QDate(2026, 7, 1), QTime(9, 0), Qt::OffsetFromUTC, 7200};
    clips.add(line);
    const std::vector<RecapClip> all = clips.inOrder(ClipCalls::InOrder);
    QVERIFY(!all[0].stretch.begin.isValid());
    QCOMPARE(all[1].stretch.begin.time(), QTime(9, 0));
    QCOMPARE(all[1].stretch.fileName, QString("/videos/garden.mp4"));
    QCOMPARE(all[1].stretch.frameRate, 12.5);
    QCOMPARE(all[1].stretch.start, 2.5);
}

QTEST_APPLESS_MAIN(TestRecapClips)
#include "test_recapclips.moc"
