// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// When recordings began, as the scanner finds it by itself, and where that is shown.

#include "files.h"
#include "media.h"
#include "pipewriter.h"
#include "process.h"
#include "scannerstand.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

const QString berlin = QStringLiteral("Europe/Berlin");

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", QStringList{"--merge", "0"} + oneClip + arguments);
}

ProcessResult scanClocks(const QStringList& arguments) {
    return scan(QStringList{"--start-time", "auto", "--time-zone", berlin, "--format", "jsonl"} +
                arguments);
}

bool setModified(const QString& file, qint64 seconds) {
    const std::array<timespec, 2> times = {timespec{seconds, 0}, timespec{seconds, 0}};
    return utimensat(AT_FDCWD, QFile::encodeName(file).constData(), times.data(), 0) == 0;
}

qint64 secondsOf(const char* text) {
    return QDateTime::fromString(text, Qt::ISODate).toSecsSinceEpoch();
}

} // namespace

class TestScanClock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void namesAreRead();
    void listsHaveColumns();
    void textIsAsEver();
    void headsAreRead_data();
    void headsAreRead();
    void filesTellTheirEnd();
    void whatIsNotKnownIsLeftOut();
    void pipesLoseNothing();
    void ownPatternsAreRead();
    void givenTimesHaveTheirZone();
    void keptValuesTellTheSame();
    void jobsTellTheSame();
    void reportsHaveEachTheirOwn();

private:
    QString copied(const QString& name) const;

    QTemporaryDir folder;
    QString video; ///< a visit of which nothing tells when it was
};

void TestScanClock::initTestCase() {
    video = folder.filePath("visit.mp4");
    QVERIFY(encodeVisit(video));
    QVERIFY(setModified(video, 0));
}

/// A copy of the visit, made today.
QString TestScanClock::copied(const QString& name) const {
    QString copy = folder.filePath(name);
    QDir().mkpath(QFileInfo(copy).path());
    QFile::remove(copy);
    QFile::copy(video, copy);
    return copy;
}

void TestScanClock::namesAreRead() {
    const QString named = copied("VID_20261122_203015.mp4");
    const ProcessResult result = scanClocks({named});
    QCOMPARE(result.status, 0);
    QVERIFY(result.errors.contains("VID_20261122_203015.mp4: began 2026-11-22 20:30:15 +01:00, by "
                                   "its name (sure)\n"));
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines.size(), 2);
    const QDateTime began(QDate(2026, 11, 22), QTime(19, 30, 15), Qt::UTC);
    for (const char* end : {"start", "end"}) {
        const QString clock = lines[0][QString(end) + "Clock"].toString();
        QVERIFY2(clock.endsWith("+01:00"), qPrintable(clock));
        QCOMPARE(QDateTime::fromString(clock, Qt::ISODateWithMs).toUTC(),
                 began.addMSecs(qRound64(lines[0][end].toDouble() * 1000.0)));
    }
    QCOMPARE(lines[1]["began"].toString(), QString("2026-11-22T20:30:15.000+01:00"));
    QCOMPARE(lines[1]["beganBy"].toString(), QString("name"));
    QCOMPARE(lines[1]["beganCertainty"].toString(), QString("sure"));
    QVERIFY(lines[1]["beganDoubts"].isArray());
    QVERIFY(!scanClocks({"--quiet", named}).errors.contains("began"));
}

void TestScanClock::listsHaveColumns() {
    const QStringList call = {"--format", "csv", copied("VID_20261122_203015.mp4")};
    const QByteArray plain = scan(call).output;
    const QList<QByteArray> rows = scanClocks(call).output.split('\n');
    QCOMPARE(rows[0], QByteArray("video,index,start,end,snapshotTime,snapshot,startClock,"
                                 "endClock\r"));
    QVERIFY2(rows[1].contains(",,2026-11-22T20:30:"), rows[1].constData());
    QVERIFY(plain.startsWith("video,index,start,end,snapshotTime,snapshot\r\n"));
    QVERIFY(rows[1].startsWith(plain.split('\n')[1].chopped(1)));
}

void TestScanClock::textIsAsEver() {
    const QString named = copied("VID_20261122_203015.mp4");
    for (const char* format : {"text", "m3u", "mpv", "cuts", "edl", "mlt"})
        QCOMPARE(scanClocks({"--format", format, named}).output,
                 scan({"--format", format, named}).output);
}

void TestScanClock::headsAreRead_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QString>("began");
    QTest::addColumn<QString>("by");
    const QStringList utc = {"-metadata", "creation_time=2026-11-22T19:30:15Z"};
    const QString known = "2026-11-22T20:30:15.000+01:00";
    QTest::newRow("MP4") << "head.mp4" << utc << known << "container";
    QTest::newRow("MKV") << "head.mkv" << utc << known << "container";
    QTest::newRow("MOV with its zone")
        << "head.mov"
        << QStringList{"-movflags", "use_metadata_tags",
                       "-metadata", "com.apple.quicktime.creationdate=2026-11-22T14:30:15-0500",
                       "-metadata", "creation_time=2026-11-22T14:30:15Z"}
        << known << "container";
    QTest::newRow("never set") << "never.mp4"
                               << QStringList{"-metadata", "creation_time=1970-01-01T00:00:12Z"}
                               << QString() << "unknown";
    QTest::newRow("none") << "none.mp4" << QStringList() << QString() << "unknown";
    QTest::newRow("name first") << "20261122_203015.mp4"
                                << QStringList{"-metadata", "creation_time=2020-05-05T00:00:00Z"}
                                << known << "name";
}

void TestScanClock::headsAreRead() {
    QFETCH(QString, name);
    QFETCH(QStringList, tags);
    QFETCH(QString, began);
    QFETCH(QString, by);
    const QString tagged = folder.filePath("heads-" + name);
    QVERIFY(media::encode(QStringList{"-i", video, "-c", "copy"} + tags + QStringList{tagged}));
    QVERIFY(setModified(tagged, 0));
    const ProcessResult result = scanClocks({tagged});
    const QJsonObject end = jsonLines(result.output).last();
    QCOMPARE(end["began"].toString(), began);
    QCOMPARE(end["beganBy"].toString(), by);
    QCOMPARE(result.errors.contains("if its clock is that of UTC"),
             end["beganCertainty"].toString() == "likely");
}

void TestScanClock::filesTellTheirEnd() {
    const QString copy = copied("visit-of-a-day.mp4");
    QVERIFY(setModified(copy, secondsOf("2026-11-22T19:30:35Z")));
    const ProcessResult result = scanClocks({copy});
    const QJsonObject end = jsonLines(result.output).last();
    QCOMPARE(end["began"].toString(), QString("2026-11-22T20:30:15.000+01:00")); // of 20 s
    QCOMPARE(end["beganBy"].toString(), QString("file time"));
    QCOMPARE(end["beganCertainty"].toString(), QString("rough"));
}

void TestScanClock::whatIsNotKnownIsLeftOut() {
    const QString day = copied("VID-20261122-WA0001.mp4");
    QVERIFY(setModified(day, 0));
    const ProcessResult result = scanClocks({day});
    QCOMPARE(result.status, 0);
    const QList<QJsonObject> lines = jsonLines(result.output);
    QVERIFY(lines[0]["startClock"].isNull() && lines[0].contains("startClock"));
    QVERIFY(lines[1]["began"].isNull() && lines[1].contains("began"));
    QCOMPARE(lines[1]["beganDoubts"].toArray().size(), 2);
    QVERIFY(result.errors.contains("it is not known when it began; its name has a day, but no "
                                   "time; "));
    QVERIFY(scanClocks({"--format", "csv", day}).output.contains(",,,\r\n"));
}

void TestScanClock::pipesLoseNothing() {
    const QString unknown = folder.filePath("pipe.ts");
    const QString known = folder.filePath("20261122_203015.ts");
    const QString stream = folder.filePath("stream.ts");
    QVERIFY(media::encode({"-i", video, "-c", "copy", stream}));
    const QByteArray plain = scan({"--format", "csv", stream}).output.split(',').value(7);
    for (const QString& pipe : {unknown, known}) {
        PipeWriter writer(pipe, readFile(stream));
        writer.goOn();
        const ProcessResult result = scanClocks({pipe});
        const QList<QJsonObject> lines = jsonLines(result.output);
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[1]["beganBy"].toString(), QString(pipe == known ? "name" : "unknown"));
        QCOMPARE(QByteArray::number(lines[0]["start"].toDouble(), 'g', 17).toDouble(),
                 plain.toDouble());
    }
}

void TestScanClock::ownPatternsAreRead() {
    const ProcessResult result =
        scanClocks({"--start-pattern", "%m-%d-%Y_%H-%M-%S", copied("01-02-2026_20-30-15.mp4"),
                    copied("VID_20261122_203015.mp4")});
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines[1]["began"].toString(), QString("2026-01-02T20:30:15.000+01:00"));
    QCOMPARE(lines[3]["beganBy"].toString(), QString("file time"));
    QVERIFY(result.errors.contains("its name is not as --start-pattern says"));
}

void TestScanClock::givenTimesHaveTheirZone() {
    const ProcessResult result =
        scan({"--start-time", "2026-10-25T02:30:00", "--time-zone", berlin, "--format", "jsonl",
              video, copied("VID_20261122_203015.mp4")});
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines[1]["began"].toString(), QString("2026-10-25T02:30:00.000+02:00"));
    QCOMPARE(lines[1]["beganBy"].toString(), QString("given"));
    QCOMPARE(lines[3]["beganBy"].toString(), QString("unknown"));
    QVERIFY(result.errors.contains("that hour came twice, the first one was taken"));
    QCOMPARE(result.errors.count("--start-time is when the first recording began"), 1);
}

void TestScanClock::keptValuesTellTheSame() {
    const QString copy = copied("kept.mp4");
    QVERIFY(setModified(copy, secondsOf("2026-11-22T19:30:35Z")));
    const QStringList call = {"--values", folder.filePath("values"), copy};
    const ProcessResult first = scanClocks(call);
    const ProcessResult again = scanClocks(call);
    QCOMPARE(again.output, first.output);
    const QStringList files = QDir(folder.filePath("values")).entryList({"*.values"});
    QCOMPARE(files.size(), 1);
    const ProcessResult named = scanClocks({folder.filePath("values/" + files[0])});
    QCOMPARE(named.output, first.output);
    QVERIFY(QFile::remove(copy));
    const ProcessResult gone = scanClocks({folder.filePath("values/" + files[0])});
    QCOMPARE(jsonLines(gone.output).last()["beganBy"].toString(), QString("unknown"));
}

void TestScanClock::jobsTellTheSame() {
    QStringList names;
    for (const char* name : {"j/20261122_203015.mp4", "j/20261122_203035.mp4", "j/visit.mp4",
                             "j/01-02-2026_20-30-15.mp4"}) {
        names += copied(name);
        QVERIFY(setModified(names.last(), secondsOf("2026-11-22T19:30:35Z")));
    }
    const ProcessResult one = scanClocks(names);
    QCOMPARE(one.status, 0);
    QCOMPARE(scanClocks(QStringList{"--jobs", "3"} + names).output, one.output);
}

void TestScanClock::reportsHaveEachTheirOwn() {
    const QString first = copied("20261122_203015.mp4");
    const QString second = copied("20261123_000000.mp4");
    const QString report = folder.filePath("report");
    QCOMPARE(scanClocks({"--report", report, first, second}).status, 0);
    const QByteArray page = readFile(report + "/index.html");
    QVERIFY(page.contains("began 2026-11-22 20:30:15 +01:00, by its name (sure)"));
    QVERIFY(page.contains("began 2026-11-23 00:00:00 +01:00, by its name (sure)"));
    QVERIFY(page.contains("</b> 20:30:"));
    QVERIFY(page.contains("</b> 00:00:"));
}

QTEST_GUILESS_MAIN(TestScanClock)
#include "test_scanclock.moc"
