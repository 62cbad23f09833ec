// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What is said of recordings that were read to their end, but not whole.

#include "damage.h"
#include "files.h"
#include "media.h"
#include "process.h"

#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {

/// Pictures behind a first one at 0, at this pace and from `begin` (seconds) up to `end`.
void add(MotionSeries& series, double begin, double end, double pace) {
    for (double time = begin; time < end - pace / 2; time += pace) {
        series.times.append(time);
        series.scores.append(MotionScore());
    }
}

MotionSeries seriesUpTo(double end, double pace) {
    MotionSeries series;
    add(series, pace, end, pace);
    return series;
}

QJsonObject lastLine(const ProcessResult& result) {
    const QList<QJsonObject> lines = jsonLines(result.output);
    return lines.isEmpty() ? QJsonObject() : lines.last();
}

} // namespace

class TestDamage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void shorterThanPromised_data();
    void shorterThanPromised();
    void holesNeedOtherSigns();
    void nothingIsMissingBeforeARange();
    void packetsCountByThemselves();

    void undamagedOnesSayNothing_data();
    void undamagedOnesSayNothing();
    void damagedOnesSayWhatIsMissing_data();
    void damagedOnesSayWhatIsMissing();
    void theReportNamesIt();
    void whatIsKeptSaysIt();
    void partsThatAreCutOffAreNotJoined();

private:
    ProcessResult scan(const QStringList& arguments) const {
        return runProgram("kestrova-scan", QStringList{"--quiet", "--format", "jsonl"} + arguments);
    }
    QString path(const QString& name) const { return folder.filePath(name); }
    QString overwritten(const QString& name, double begin, double end) const;
    QString cut(const QString& name, double end) const;

    QTemporaryDir folder;
};

/// 40 seconds of 25 pictures each.
void TestDamage::initTestCase() {
    const QStringList scene = {"-f", "lavfi", "-i", "testsrc2=s=96x64:r=25:d=40"};
    const QStringList x264 = {"-c:v", "libx264", "-preset", "veryfast", "-g", "50", "-bf", "2"};
    const QStringList sound = {"-f", "lavfi", "-i", "sine=d=60"};
    QVERIFY(media::encode(scene + x264 + QStringList{"-movflags", "+faststart", path("a.mp4")}));
    QVERIFY(media::encode(scene + x264 + QStringList{path("b.mkv")}));
    QVERIFY(media::encode(scene + QStringList{"-c:v", "mjpeg", path("c.avi")}));
    QVERIFY(media::encode(scene + sound + x264 + QStringList{path("longer-sound.mp4")}));
    QVERIFY(media::encode(scene + sound + x264 + QStringList{path("longer-sound.mkv")}));
    QVERIFY(media::encode(scene + sound + QStringList{"-c:v", "mjpeg", path("longer-sound.avi")}));
    QVERIFY(media::encode(scene + x264 + QStringList{path("transport.ts")}));
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=96x64:r=1/5:d=200", "-c:v", "libx264",
                           "-bf", "3", path("slow.mp4")}));
    QVERIFY(media::encode(scene + x264 + QStringList{"-f", "h264", path("raw.264")}));
    for (const char* name : {"later.mkv", "later.mp4", "later.wmv"})
        QVERIFY(media::encode(scene +
                              QStringList{"-c:v", "mjpeg", "-output_ts_offset", "30", path(name)}));
}

QString TestDamage::overwritten(const QString& name, double begin, double end) const {
    QByteArray bytes = readFile(path(name));
    const int size = bytes.size();
    for (int i = int(size * begin); i < int(size * end); ++i)
        bytes[i] = 0;
    writeFile(path("overwritten-" + name), bytes);
    return path("overwritten-" + name);
}

QString TestDamage::cut(const QString& name, double end) const {
    const QByteArray bytes = readFile(path(name));
    writeFile(path("cut-" + name), bytes.left(int(bytes.size() * end)));
    return path("cut-" + name);
}

void TestDamage::shorterThanPromised_data() {
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("pace");
    QTest::addColumn<double>("promised");
    QTest::addColumn<bool>("isShort");
    QTest::newRow("all") << 60.0 << 0.04 << 60.0 << false;
    QTest::newRow("a quarter") << 17.0 << 0.04 << 64.7 << true;
    QTest::newRow("nothing promised") << 17.0 << 0.04 << 0.0 << false;
    QTest::newRow("more than promised") << 17.0 << 0.04 << 5.0 << false;
    QTest::newRow("two seconds") << 18.1 << 0.04 << 20.0 << false;
    QTest::newRow("three seconds") << 17.0 << 0.04 << 20.0 << true;
    QTest::newRow("three of a hundred") << 97.0 << 0.04 << 100.0 << false;
    QTest::newRow("held back by the decoder") << 120.0 << 5.0 << 200.0 << false;
}

void TestDamage::shorterThanPromised() {
    QFETCH(double, length);
    QFETCH(double, pace);
    QFETCH(double, promised);
    QFETCH(bool, isShort);
    const Damage damage = damageOf({}, seriesUpTo(length, pace), {0, false, promised});
    QCOMPARE(damage.isThere(), isShort);
    QCOMPARE(damage.promised, isShort ? promised : 0.0);
    QVERIFY(!isShort || std::abs(damage.read - length) < 2 * pace);
}

void TestDamage::holesNeedOtherSigns() {
    MotionSeries series = seriesUpTo(10.0, 0.1);
    add(series, 40.0, 60.0, 0.1);
    QVERIFY(!damageOf({}, series, {0, false, 60.0}).isThere());
    const Damage damage = damageOf({}, series, {0, true, 60.0});
    QCOMPARE(damage.promised, 60.0);
    QVERIFY2(std::abs(damage.read - 30.0) < 0.5, qPrintable(QString::number(damage.read)));
}

void TestDamage::nothingIsMissingBeforeARange() {
    MotionSeries series;
    add(series, 40.1, 60.0, 0.1);
    QVERIFY(!damageOf({0.0, 40.0}, series, {0, true, 60.0}).isThere());
    const Damage damage = damageOf({0.0, 40.0}, series, {0, true, 80.0});
    QCOMPARE(damage.promised, 80.0);
    QVERIFY2(std::abs(damage.read - 60.0) < 0.5, qPrintable(QString::number(damage.read)));
}

void TestDamage::packetsCountByThemselves() {
    const Damage damage = damageOf({}, seriesUpTo(60.0, 0.1), {3, false, 60.0});
    QVERIFY(damage.isThere());
    QCOMPARE(damage.packets, qint64(3));
    QCOMPARE(damage.promised, 0.0);
}

void TestDamage::undamagedOnesSayNothing_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    for (const char* name : {"a.mp4", "b.mkv", "c.avi", "longer-sound.mp4", "longer-sound.mkv",
                             "longer-sound.avi", "transport.ts", "slow.mp4"})
        QTest::newRow(name) << name << QStringList();
    // Cameras that go on counting where their last file ended.
    for (const char* name : {"later.mkv", "later.mp4", "later.wmv"})
        QTest::newRow(name) << name << QStringList();
    QTest::newRow("range") << "a.mp4" << QStringList{"--from", "5", "--to", "12"};
    QTest::newRow("from the middle") << "a.mp4" << QStringList{"--from", "30"};
    QTest::newRow("key frames") << "c.avi" << QStringList{"--quick"};
    QTest::newRow("left out") << "b.mkv" << QStringList{"--skip", "100"};
    QTest::newRow("another rate") << "a.mp4" << QStringList{"--fps", "100"};
    QTest::newRow("no times") << "raw.264" << QStringList();
}

void TestDamage::undamagedOnesSayNothing() {
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    for (const char* threads : {"1", "2"}) {
        const ProcessResult found = scan(options + QStringList{"--threads", threads, path(name)});
        QCOMPARE(found.status, 0);
        QVERIFY2(!found.output.contains("damaged"), found.output.constData());
        QVERIFY2(!found.errors.contains("damaged"), found.errors.constData());
    }
}

void TestDamage::damagedOnesSayWhatIsMissing_data() {
    QTest::addColumn<QString>("video");
    QTest::addColumn<bool>("hasPackets");
    QTest::addColumn<bool>("isShort");
    QTest::newRow("packets in the middle") << overwritten("a.mp4", 0.3, 0.8) << true << true;
    QTest::newRow("a hole in the file") << overwritten("b.mkv", 0.3, 0.8) << false << true;
    QTest::newRow("lost behind the middle") << overwritten("c.avi", 0.3, 0.8) << false << true;
    for (const char* name : {"a.mp4", "b.mkv", "c.avi"})
        QTest::newRow(qPrintable(QString("cut off, ") + name)) << cut(name, 0.5) << false << true;
}

void TestDamage::damagedOnesSayWhatIsMissing() {
    QFETCH(QString, video);
    QFETCH(bool, hasPackets);
    QFETCH(bool, isShort);
    for (const char* threads : {"1", "2", "4"}) {
        const ProcessResult found = scan({"--threads", threads, video});
        QCOMPARE(found.status, 0);
        const QJsonObject line = lastLine(found);
        QCOMPARE(line["state"].toString(), QString("finished"));
        const QJsonObject damaged = line["damaged"].toObject();
        QVERIFY2(!damaged.isEmpty(), found.output.constData());
        QVERIFY2((damaged["packets"].toInt(-1) > 100) == hasPackets, found.output.constData());
        QCOMPARE(damaged.contains("promised"), isShort);
        QVERIFY(!isShort || std::abs(damaged["promised"].toDouble() - 40.0) < 0.2);
        QVERIFY(!isShort || damaged["read"].toDouble() < 30.0);
        const QByteArray sentence = "kestrova-scan: " + video.toUtf8() + ": damaged: ";
        QVERIFY2(found.errors.startsWith(sentence), found.errors.constData());
        QCOMPARE(found.errors.contains(" packets could not be decoded"), hasPackets);
        QCOMPARE(found.errors.contains("that its headers promise, 0:00:"), isShort);
    }
}

void TestDamage::theReportNamesIt() {
    const QString video = cut("b.mkv", 0.5);
    QCOMPARE(scan({"--report", path("report"), video}).status, 0);
    QVERIFY(readFile(path("report/index.html")).contains("that its headers promise"));
    QCOMPARE(scan({"--report", path("whole"), path("b.mkv")}).status, 0);
    QVERIFY(!readFile(path("whole/index.html")).contains("that its headers promise"));
}

void TestDamage::whatIsKeptSaysIt() {
    for (const QString& video : {overwritten("a.mp4", 0.3, 0.8), path("a.mp4")}) {
        const ProcessResult fresh = scan({"--values", path("kept"), video});
        const ProcessResult again = scan({"--values", path("kept"), video});
        QCOMPARE(again.status, 0);
        QCOMPARE(again.output, fresh.output);
        QCOMPARE(again.errors, fresh.errors);
    }
}

void TestDamage::partsThatAreCutOffAreNotJoined() {
    const QString video = cut("b.mkv", 0.5);
    const ProcessResult fresh = scan({video});
    for (const char* part : {"1/2", "2/2"})
        QCOMPARE(
            runProgram("kestrova-scan", {"--values", path("parts"), "--part", part, video}).status,
            0);
    const ProcessResult joined = scan({"--values", path("parts"), video});
    QCOMPARE(joined.output, fresh.output);
    QVERIFY(fresh.output.contains("\"damaged\""));
}

QTEST_GUILESS_MAIN(TestDamage)
#include "test_damage.moc"
