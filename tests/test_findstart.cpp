// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// When a recording began: by its name, else by its head, else by the time of its file.

#include "findstart.h"
#include "startinfile.h"
#include "starttext.h"
#include "zonedtime.h"

#include <QtTest>

#include <limits>

Q_DECLARE_METATYPE(StartDoubt)

namespace {

QTimeZone berlin() {
    return *zoneNamed("Europe/Berlin");
}

QDateTime utc(const char* text) {
    return QDateTime::fromString(text, Qt::ISODate);
}

FileHead headWith(const QStringList& times, double seconds = 60.0) {
    return {times, seconds};
}

const QString unnamed = QStringLiteral("/home/anna/garden.mp4");

} // namespace

class TestFindStart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void headsAreRead_data();
    void headsAreRead();
    void forgedHeadsAreNot_data();
    void forgedHeadsAreNot();
    void daysAloneAreNoTimes();
    void clocksThatAreAheadAreTold_data();
    void clocksThatAreAheadAreTold();
    void filesTellTheirEnd();
    void badFileTimesAreNotUsed_data();
    void badFileTimesAreNotUsed();
    void lengthsMustBeSensible_data();
    void lengthsMustBeSensible();
    void nameComesFirst();
    void headComesBeforeTheFile();
    void doubtsOfTheWayAreKept();
    void nothingIsKnownOfWhatTellsNothing();
    void everyDoubtHasItsWords();
    void isoTextsTellTheZone();
};

void TestFindStart::headsAreRead_data() {
    QTest::addColumn<QStringList>("times");
    QTest::addColumn<QString>("text");
    QTest::newRow("as UTC") << QStringList{"2026-11-22T19:30:15.000000Z"}
                            << "began 2026-11-22 20:30:15 +01:00, by its container (likely); if "
                               "its clock is that of UTC";
    QTest::newRow("with its zone") << QStringList{"2026-11-22T14:30:15-0500"}
                                   << "began 2026-11-22 20:30:15 +01:00, by its container (sure)";
    QTest::newRow("without one") << QStringList{"2026-11-22 20:30:15"}
                                 << "began 2026-11-22 20:30:15 +01:00, by its container (likely)";
    QTest::newRow("with one first")
        << QStringList{"2026-11-22T20:30:15+0100", "2026-11-22T20:30:15.000000Z"}
        << "began 2026-11-22 20:30:15 +01:00, by its container (sure)";
    QTest::newRow("a year first")
        << QStringList{"2026", "2026-11-22T19:30:15Z"}
        << "began 2026-11-22 20:30:15 +01:00, by its container (likely); if its clock is that of "
           "UTC";
    QTest::newRow("hour that came twice")
        << QStringList{"2026-10-25 02:30:00"}
        << "began 2026-10-25 02:30:00 +02:00, by its container (likely); that hour came twice, "
           "the first one was taken";
    QTest::newRow("hour that was missing")
        << QStringList{"2026-03-29 02:30:00"}
        << "began 2026-03-29 03:30:00 +02:00, by its container (likely); the clock was put forward "
           "over that hour, taken as if it had not";
}

void TestFindStart::headsAreRead() {
    QFETCH(QStringList, times);
    QFETCH(QString, text);
    QCOMPARE(startText(startInHead(headWith(times), berlin())), text);
}

void TestFindStart::forgedHeadsAreNot_data() {
    QTest::addColumn<QString>("time");
    QTest::addColumn<StartDoubt>("doubt");
    const auto row = [](const char* name, const QString& time,
                        StartDoubt doubt = StartDoubt::UnlikelyTime) {
        QTest::newRow(name) << time << doubt;
    };
    row("epoch of QuickTime", "1904-01-01T00:00:00.000000Z", StartDoubt::ClockNotSet);
    row("epoch of Unix", "1970-01-01T00:00:12.000000Z", StartDoubt::ClockNotSet);
    row("epoch of a zone", "1969-12-31T16:00:12Z", StartDoubt::ClockNotSet);
    row("first day of a camera", "2000-01-01T00:07:00Z", StartDoubt::ClockNotSet);
    row("long ago", "1800-01-01T00:00:00Z");
    row("far ahead", "9999-12-31T23:59:59Z");
    row("no month", "2026-13-01T00:00:00Z");
    row("no hour", "2026-11-22T25:00:00Z");
    row("no zone", "2026-11-22T20:30:15+99:00");
    row("text", "yesterday evening");
    row("empty", "");
    row("markup", "<script>alert(1)</script>");
    row("two", "2026-11-22T20:30:15Z 2026-11-23T20:30:15Z");
    row("endless", QString("2026-11-22T20:30:15.") + QString(1000000, '0') + 'Z');
    row("null", QString("2026-11-22T20:30:15Z") + QChar(0) + "x");
    row("other digits", QString::fromUtf8("٢٠٢٦-١١-٢٢T٢٠:٣٠:١٥Z"));
}

void TestFindStart::forgedHeadsAreNot() {
    QFETCH(QString, time);
    QFETCH(StartDoubt, doubt);
    const RecordingStart start = startInHead(headWith({time}), berlin());
    QVERIFY(!start.isKnown());
    QCOMPARE(start.doubts, {doubt});
}

/// As films and albums have them.
void TestFindStart::daysAloneAreNoTimes() {
    for (const char* text : {"2026", "2026-11", "2026-11-22"}) {
        const RecordingStart start = startInHead(headWith({text}), berlin());
        QVERIFY(!start.isKnown());
        QVERIFY(start.doubts.isEmpty());
    }
}

void TestFindStart::clocksThatAreAheadAreTold_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("inHead");
    QTest::addColumn<bool>("isAhead");
    QTest::newRow("name") << "/night/20361122_203015.mp4"
                          << "" << true;
    QTest::newRow("number") << "/night/2110000000.mp4"
                            << "" << true;
    QTest::newRow("head") << unnamed << "2036-11-22T19:30:15Z" << true;
    QTest::newRow("file") << unnamed << "" << true;
    // This machine's clock may be behind.
    QTest::newRow("by half a year") << "/night/20270522_203015.mp4"
                                    << "" << false;
}

void TestFindStart::clocksThatAreAheadAreTold() {
    QFETCH(QString, path);
    QFETCH(QString, inHead);
    const auto head = [&] {
        return headWith(inHead.isEmpty() ? QStringList() : QStringList{inHead});
    };
    StartSearch search{berlin(), {}};
    const QDateTime modified = utc("2036-11-22T19:31:15Z");
    const RecordingStart timeless = findStart(path, modified, search, head);
    QVERIFY(!timeless.doubts.contains(StartDoubt::Ahead));
    search.now = utc("2026-11-23T12:00:00Z");
    const RecordingStart start = findStart(path, modified, search, head);
    QVERIFY(start.isKnown());
    QCOMPARE(start.time, timeless.time);
    QTEST(start.doubts.contains(StartDoubt::Ahead), "isAhead");
    QTEST(start.certainty == StartCertainty::Rough, "isAhead");
}

void TestFindStart::filesTellTheirEnd() {
    const RecordingStart start = startByFile(utc("2026-11-22T19:31:15Z"), headWith({}), berlin());
    QCOMPARE(startText(start),
             QString("began 2026-11-22 20:30:15 +01:00, by its file's time less its length "
                     "(rough)"));
    QCOMPARE(start.source, StartSource::FileTime);
    // Over the hour that comes twice there is no doubt: the file's time is one of UTC.
    const RecordingStart twice = startByFile(utc("2026-10-25T01:00:30Z"), headWith({}), berlin());
    QCOMPARE(isoText(twice.time), QString("2026-10-25T02:59:30.000+02:00"));
    QVERIFY(twice.doubts.isEmpty());
}

void TestFindStart::badFileTimesAreNotUsed_data() {
    QTest::addColumn<QDateTime>("modified");
    QTest::addColumn<QVector<StartDoubt>>("doubts");
    using Doubts = QVector<StartDoubt>;
    QTest::newRow("none") << QDateTime() << Doubts{};
    QTest::newRow("1970") << utc("1970-01-01T00:00:00Z") << Doubts{StartDoubt::ClockNotSet};
    QTest::newRow("FAT's first day")
        << utc("1980-01-01T00:00:00Z") << Doubts{StartDoubt::ClockNotSet};
    QTest::newRow("negative") << QDateTime::fromSecsSinceEpoch(-2000000000, Qt::UTC)
                              << Doubts{StartDoubt::UnlikelyTime};
    QTest::newRow("huge") << QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::max() / 4,
                                                            Qt::UTC)
                          << Doubts{StartDoubt::UnlikelyTime};
}

void TestFindStart::badFileTimesAreNotUsed() {
    QFETCH(QDateTime, modified);
    QFETCH(QVector<StartDoubt>, doubts);
    const RecordingStart start = startByFile(modified, headWith({}), berlin());
    QVERIFY(!start.isKnown());
    QCOMPARE(start.doubts, doubts);
}

void TestFindStart::lengthsMustBeSensible_data() {
    QTest::addColumn<double>("seconds");
    QTest::newRow("unknown") << 0.0;
    QTest::newRow("negative") << -60.0;
    QTest::newRow("huge") << 1e18;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
}

void TestFindStart::lengthsMustBeSensible() {
    QFETCH(double, seconds);
    const RecordingStart start =
        startByFile(utc("2026-11-22T19:31:15Z"), headWith({}, seconds), berlin());
    QVERIFY(!start.isKnown());
    QCOMPARE(start.doubts, {StartDoubt::LengthUnknown});
}

void TestFindStart::nameComesFirst() {
    bool isRead = false;
    const auto head = [&] {
        isRead = true;
        return headWith({"2026-01-01T00:00:00Z"});
    };
    const RecordingStart start = findStart("/home/anna/20261122_203015.mp4",
                                           utc("2026-01-01T00:00:00Z"), {berlin(), {}}, head);
    QCOMPARE(start.source, StartSource::Name);
    QVERIFY(!isRead);
}

void TestFindStart::headComesBeforeTheFile() {
    const auto head = [] { return headWith({"2026-11-22T19:30:15Z"}); };
    const RecordingStart start =
        findStart(unnamed, utc("2026-11-23T00:00:00Z"), {berlin(), {}}, head);
    QCOMPARE(start.source, StartSource::Container);
}

void TestFindStart::doubtsOfTheWayAreKept() {
    const auto head = [] { return headWith({"1904-01-01T00:00:00Z"}); };
    const RecordingStart start = findStart("/home/anna/VID-20261122-WA0001.mp4",
                                           utc("2026-11-22T19:31:15Z"), {berlin(), {}}, head);
    QCOMPARE(start.source, StartSource::FileTime);
    QCOMPARE(start.doubts,
             (QVector<StartDoubt>{StartDoubt::DayWithoutTime, StartDoubt::ClockNotSet}));
    const RecordingStart unfit =
        findStart("/home/anna/20261122_203015.mp4", utc("2026-11-22T19:31:15Z"),
                  {berlin(), NamePattern("%d.%m.%Y %H")}, [] { return headWith({}); });
    QCOMPARE(unfit.source, StartSource::FileTime);
    QCOMPARE(unfit.doubts, {StartDoubt::PatternUnfit});
}

void TestFindStart::nothingIsKnownOfWhatTellsNothing() {
    const RecordingStart start = findStart(unnamed, {}, {berlin(), {}}, [] { return FileHead(); });
    QVERIFY(!start.isKnown());
    QCOMPARE(start.source, StartSource::Unknown);
    QCOMPARE(startText(start), QString("it is not known when it began"));
    QVERIFY(!start.wallClock().isValid());
}

void TestFindStart::everyDoubtHasItsWords() {
    QSet<QString> texts;
    const int last = int(StartDoubt::ZoneSupposed);
    for (int i = 0; i <= last; ++i)
        texts += doubtText(StartDoubt(i));
    QCOMPARE(texts.size(), last + 1);
    QVERIFY(!texts.contains(QString()));
}

void TestFindStart::isoTextsTellTheZone() {
    const QDateTime time = utc("2026-11-22T19:30:15Z");
    QCOMPARE(isoText(time), QString("2026-11-22T19:30:15.000Z"));
    QCOMPARE(isoText(time.toTimeZone(berlin())), QString("2026-11-22T20:30:15.000+01:00"));
    QCOMPARE(isoText(time.toTimeZone(*zoneNamed("America/St_Johns"))),
             QString("2026-11-22T16:00:15.000-03:30"));
    QCOMPARE(isoText(time.toTimeZone(*zoneNamed("UTC"))), QString("2026-11-22T19:30:15.000Z"));
}

QTEST_GUILESS_MAIN(TestFindStart)
#include "test_findstart.moc"
