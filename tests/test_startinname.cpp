// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// When a recording began, as its name tells it: names as cameras, recorders and phones give them,
// those that only look like times, and names of a person's own.

#include "knownnames.h"
#include "startinname.h"
#include "starttext.h"
#include "zonedtime.h"

#include <QtTest>

Q_DECLARE_METATYPE(StartDoubt)

namespace {

const QString folder = QStringLiteral("/home/anna/night/");

// Half an hour from UTC's whole hours, and never put forward: no other zone is taken for it.
QTimeZone kolkata() {
    return *zoneNamed("Asia/Kolkata");
}

QString timeIn(const QString& path) {
    const RecordingStart start = startInName(path, kolkata());
    return start.isKnown() ? start.wallClock().toString("yyyy-MM-dd HH:mm:ss.zzz") : QString();
}

} // namespace

class TestStartInName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesOfCamerasAreRead_data();
    void namesOfCamerasAreRead();
    void otherNamesAreNot_data();
    void otherNamesAreNot();
    void doubtsAreTold_data();
    void doubtsAreTold();
    void everyKnownNameHasItsExample();
    void certaintyIsTold();
    void ownPatternsAreRead_data();
    void ownPatternsAreRead();
    void ownPatternsStandInPlaceOfTheKnown();
    void badPatternsAreRefused_data();
    void badPatternsAreRefused();
    void hostileNamesTakeNoTime();
};

void TestStartInName::namesOfCamerasAreRead_data() {
    QTest::addColumn<QString>("time");
    const auto row = [](const char* name, const char* time = "2026-11-22 20:30:15.000") {
        QTest::newRow(name) << QString(time);
    };
    // Network cameras and recorders.
    row("ch01_20261122203015.mp4");
    row("D01_20261122203015.mp4");
    row("192.168.1.64_01_20261122203015123_1.mp4", "2026-11-22 20:30:15.123");
    row("NVR_ch2_main_20261122203015_20261122203115.dav");
    row("XVR_ch1_main_20261122203015_20261122203115.mp4");
    row("2026-11-22/001/dav/20/20.30.15-20.31.15[M][0@0][0].dav");
    row("RLC-410-5MP_00_20261122203015.mp4");
    row("Mp4Record/2026-11-22/RecM01_20261122_203015_203045_6D28808_28F7C1.mp4");
    row("20261122_203015_AB12_ACCC8E012345.mkv");
    row("MDalarm_20261122_203015.mkv");
    row("schedule_20261122-203015.avi");
    row("20261122_203015_tp00001.mp4");
    row("20261122/20/20261122_203015D.avi");
    row("CH01-20261122-203015-203115-001000000000.mp4");
    row("Event20261122203015001.avi", "2026-11-22 20:30:15.001");
    row("Yard.20261122_203015.mp4");
    row("FrontDoor-20261122-203015-1795379415.mp4");
    row("RingVideo_20261122_203015.mp4");
    row("2026/11/22/20/30.mp4", "2026-11-22 20:30:00.000");
    row("record/20261122/20/30.mp4", "2026-11-22 20:30:00.000");
    row("2026Y11M22D20H/30M15S60.mp4");
    row("2026112220/30M15S_1795359615.mp4");
    row("2026-11-22/20-30-15.mkv");
    row("2026/11/22/203015-203115.mp4");
    row("2026-11-22_20-30-15-front.mp4");
    row("01-20261122203015.avi");
    // What is written in UTC is half past five hours earlier.
    row("recordings/2026-11-22/15/yard/00.15.mp4");
    row("1795359615000.mp4");
    row("1795359615.mp4");
    row("alarm_1795359615.mp4");
    row("2026-11-22T15-00-15Z.mp4");
    row("2026-11-22T15:00:15Z.mp4");
    row("20261122T150015Z.mp4");
    row("2026-11-22T16:00:15+01:00.mp4");
    row("20261122T100015-0500.mp4");
    row("20261122_150015Z.mp4");
    row("20261122T150015.123Z.mp4", "2026-11-22 20:30:15.123");
    row("20261122T160015.123456+0100.mp4", "2026-11-22 20:30:15.123");
    row("2026-11-22T15-00-15.123Z.mp4", "2026-11-22 20:30:15.123");
    row("2026-11-22T15-00-15-123Z.mp4", "2026-11-22 20:30:15.123");
    row("2026-11-22T10-00-15.5-05:00.mp4", "2026-11-22 20:30:15.500");
    row("2026-11-22_150015Z.mp4");
    row("yard 2026-11-22 15.00.15 UTC.mp4");
    row("2026-11-22_15-00-15_gmt_yard.mp4");
    row("20261122_150015_UTC.mp4");
    row("2026-11-22T15:00Z.mp4", "2026-11-22 20:30:00.000");
    row("2026-11-22T16-00+0100.mp4", "2026-11-22 20:30:00.000");
    // Neither a zone nor a part of a second.
    row("2026-11-22T20-30-15_2026-11-22T20-31-15.mp4");
    row("2026-11-22T20-30-15-1.mp4");
    row("20261122_203015-0100.mp4");
    row("20261122_203015_Zoo.mp4");
    row("2026-11-22 15-00-15Z.mp4");
    row("GMT20261122-150015_Recording_1920x1080.mp4");
    row("PXL_20261122_150015123.mp4", "2026-11-22 20:30:15.123");
    row("PXL_20261122_150015123.TS.mp4", "2026-11-22 20:30:15.123");
    // Phones, computers, cars.
    row("VID_20261122_203015.mp4");
    row("20261122_203015.mp4");
    row("20261122_203015_HDR.mp4");
    row("Screen_Recording_20261122-203015_Maps.mp4");
    row("WhatsApp Video 2026-11-22 at 20.30.15.mp4");
    row("WhatsApp Video 2026-11-22 at 8.30.15 PM.mp4");
    row("Screen Recording 2026-11-22 at 8.30.15\u202fPM.mov");
    row("signal-2026-11-22-20-30-15-123.mp4");
    row("signal-2026-11-22-203015.mp4");
    row("video_2026-11-22_20-30-15.mp4");
    row("WIN_20261122_20_30_15_Pro.mp4");
    row("2026-11-22 20-30-15.mkv");
    row("2026-11-22 20.30.15.mp4");
    row("2026-11-22-20h30m15s-camera.ts");
    row("DJI_20261122203015_0001_D.MP4");
    row("2026_1122_203015_0001F.MP4");
    row("REC_2026_11_22_20_30_15_F.MP4");
    row("20261122_203015_NF.mp4");
    row("20261122203015.MTS");
    // Other orders, hours of 12, no seconds.
    row("20261122_083015PM.avi");
    row("20261122_123015AM.avi", "2026-11-22 00:30:15.000");
    row("20261122_123015PM.avi", "2026-11-22 12:30:15.000");
    row("22-Nov-2026_20-30-15.avi");
    row("Nov-22-2026 20.30.15.avi");
    row("22NOV2026_203015.avi");
    row("Yard 11-22-2026, 20.30.15 - 11-22-2026, 20.35.15.mp4");
    row("Yard 22.11.2026, 20.30.15.mp4");
    row("Yard 11-22-2026 08-30-15 PM.mp4");
    row("22112026_203015.avi");
    row("05-05-2026_20-30-15.avi", "2026-05-05 20:30:15.000");
    row("2026-11-22_20-30.mp4", "2026-11-22 20:30:00.000");
    row("Ring_FrontDoor_202611222030.mp4", "2026-11-22 20:30:00.000");
    row("2024-02-29_23-59-59.mp4", "2024-02-29 23:59:59.000");
}

void TestStartInName::namesOfCamerasAreRead() {
    QFETCH(QString, time);
    QCOMPARE(timeIn(folder + QString::fromUtf8(QTest::currentDataTag())), time);
}

void TestStartInName::otherNamesAreNot_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"GX010123.MP4",
                             "GOPR0123.MP4",
                             "IMG_0123.MOV",
                             "MVI_0123.AVI",
                             "C0001.MP4",
                             "hiv00001.mp4",
                             "00000.MTS",
                             "garden.mp4",
                             "20261322_203015.mp4",
                             "20261132_203015.mp4",
                             "2026-02-30_20-30-15.mp4",
                             "2025-02-29_20-30-15.mp4",
                             "20261122_253015.txt.mp4x1",
                             "99999999.mp4",
                             "99999999999999.mp4",
                             "12345678901234567890.mp4",
                             "1920x1080.mp4",
                             "19201080_253060.mp4",
                             "SN1795359615.mp4",
                             "1234567890.mp4",
                             "4155550123.mp4",
                             "10000000_1234567890123456_n.mp4",
                             "120261122203015.mp4",
                             "202611222030150000.mp4",
                             "3840x2160_30fps_10bit.mkv",
                             "192.168.001.064_000000.mp4",
                             "00_00_00.mp4",
                             "2026/13/22/20/30.mp4",
                             "2026/11/22/24/30.mp4",
                             "2026-11-22/IMG_000123.mp4",
                             "2026-11-22/yard.mp4",
                             "2026-11-22/cam_20-30-15.mkv"})
        QTest::newRow(name) << QString(name);
}

void TestStartInName::otherNamesAreNot() {
    QFETCH(QString, name);
    QCOMPARE(timeIn(folder + name), QString());
}

void TestStartInName::doubtsAreTold_data() {
    QTest::addColumn<StartDoubt>("doubt");
    const auto row = [](const char* name, StartDoubt doubt) { QTest::newRow(name) << doubt; };
    row("01-02-2026_20-30-15.mp4", StartDoubt::AmbiguousDay);
    row("Yard 02.01.2026, 8.30.15 PM.mp4", StartDoubt::AmbiguousDay);
    row("02-01-26_20-30-15.mp4", StartDoubt::AmbiguousDay);
    row("26-11-22_20-30-15.mp4", StartDoubt::AmbiguousDay);
    row("261122_203015.mp4", StartDoubt::AmbiguousDay);
    row("02/01/26/20-30-15.mp4", StartDoubt::AmbiguousDay);
    row("01022026_203015.mp4", StartDoubt::AmbiguousDay);
    row("VID-20261122-WA0001.mp4", StartDoubt::DayWithoutTime);
    row("20261122_0001.mp4", StartDoubt::DayWithoutTime);
    row("20261122_256199.mp4", StartDoubt::DayWithoutTime);
    row("IMG_20201010.mp4", StartDoubt::DayWithoutTime);
    row("20260230_203015.mp4", StartDoubt::UnlikelyTime);
    row("2025-02-29.mp4", StartDoubt::UnlikelyTime);
    row("19700101_000012.mp4", StartDoubt::ClockNotSet);
    row("2000-01-01_00-12-30.avi", StartDoubt::ClockNotSet);
    row("19800101000000.avi", StartDoubt::ClockNotSet);
    row("1969-12-31_16-00-12.avi", StartDoubt::ClockNotSet);
    row("18991122_203015.avi", StartDoubt::UnlikelyTime);
    row("30000101_000000.avi", StartDoubt::UnlikelyTime);
}

void TestStartInName::doubtsAreTold() {
    QFETCH(StartDoubt, doubt);
    const RecordingStart start = startInName(folder + QTest::currentDataTag(), kolkata());
    QVERIFY(!start.isKnown());
    QCOMPARE(start.doubts, {doubt});
    QVERIFY(startText(start).startsWith("it is not known when it began; "));
}

void TestStartInName::everyKnownNameHasItsExample() {
    for (const KnownName& known : knownNames()) {
        for (const NamePattern& way : known.ways)
            QVERIFY2(way.flaw().isEmpty(), qPrintable(known.pattern + way.flaw()));
        const RecordingStart start = startInName(folder + known.example, QTimeZone::utc());
        if (known.reading == NameReading::Unusable) {
            QCOMPARE(start.doubts, {StartDoubt::AmbiguousDay});
            continue;
        }
        const QString shown = start.wallClock().toString("yyyy-MM-dd HH:mm");
        QVERIFY2(shown == "2026-11-22 20:30", qPrintable(known.example + ": " + shown));
        const int second = start.time.time().second();
        QCOMPARE(second, start.doubts.contains(StartDoubt::NoSeconds) ? 0 : 15);
    }
}

void TestStartInName::certaintyIsTold() {
    const auto certaintyOf = [](const char* name) {
        return startInName(folder + name, kolkata()).certainty;
    };
    QCOMPARE(certaintyOf("20261122_203015.mp4"), StartCertainty::Sure);
    QCOMPARE(certaintyOf("2026/11/22/20/30.mp4"), StartCertainty::Likely);
    const RecordingStart counted = startInName(folder + "1795359615.mp4", kolkata());
    QCOMPARE(counted.certainty, StartCertainty::Likely);
    QCOMPARE(counted.doubts, {StartDoubt::EpochSupposed});
    const NamePattern seconds("%s");
    QCOMPARE(startInName(folder + "1795359615.mp4", kolkata(), &seconds).certainty,
             StartCertainty::Sure);
    QCOMPARE(certaintyOf("garden.mp4"), StartCertainty::Unknown);
    QCOMPARE(startText(startInName(folder + "20261122_203015.mp4", kolkata())),
             QString("began 2026-11-22 20:30:15 +05:30, by its name (sure)"));
}

void TestStartInName::ownPatternsAreRead_data() {
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("time");
    const auto row = [](const char* pattern, const char* name,
                        const char* time = "2026-11-22 20:30:15.000") {
        QTest::newRow(pattern) << QString(pattern) << QString(name) << QString(time);
    };
    row("%d.%m.%Y %H-%M-%S", "Yard 22.11.2026 20-30-15.mp4");
    row("%m-%d-%y_%H%M%S", "yard_11-22-26_203015.mp4");
    row("%y%m%d%H%M%S", "261122203015.mp4");
    row("%F_%T", "2026-11-22_20:30:15.mp4");
    row("%F %R", "2026-11-22 20:30.mp4", "2026-11-22 20:30:00.000");
    row("%Y-%j-%H%M%S", "2026-326-203015.mp4");
    row("%e %B %Y, %l.%M.%S %p", "22 November 2026, 8.30.15 pm.mp4");
    row("%Y%m%d?%k%M%S", "20261122#203015.mp4");
    row("%Y%m%d*%H%M%S.%f", "20261122-yard-203015.5.mp4", "2026-11-22 20:30:15.500");
    row("%Y/%j/%H%M%S", "2026/326/203015-7.mp4");
    row("%Y%m%d%%%H%M%S", "20261122%203015.mp4");
    row("at %s", "at 1795359615.mp4");
    row("%Y%m%d_%H%M%S%z", "20261122_160015+0100.mp4");
    row("%H%M%S-%Y%m%d", "203015-20261122.mp4");
    row("%Y%m%d/%Y%m%d%H%M%S", "20261122/20261122203015.mp4");
    row("%Y%m%d/%Y%m%d%H%M%S*", "20261121/20261122203015.mp4", "");
    row("%Y.%m.%d %H", "2026-11-22 20.mp4", "");
    row("[%Y%m%d] (%H.%M.%S)", "[20261122] (20.30.15).mp4");
}

void TestStartInName::ownPatternsAreRead() {
    QFETCH(QString, pattern);
    QFETCH(QString, name);
    QFETCH(QString, time);
    const NamePattern own(pattern);
    QCOMPARE(own.flaw(), QString());
    const RecordingStart start = startInName(folder + name, kolkata(), &own);
    QCOMPARE(start.wallClock().toString("yyyy-MM-dd HH:mm:ss.zzz"), time);
    QCOMPARE(start.isKnown(), !time.isEmpty());
}

void TestStartInName::ownPatternsStandInPlaceOfTheKnown() {
    const NamePattern own("%d-%m-%Y_%H-%M-%S");
    const RecordingStart ambiguous =
        startInName(folder + "01-02-2026_20-30-15.mp4", kolkata(), &own);
    QCOMPARE(ambiguous.time.date(), QDate(2026, 2, 1));
    QCOMPARE(ambiguous.certainty, StartCertainty::Sure);
    const RecordingStart other = startInName(folder + "20261122_203015.mp4", kolkata(), &own);
    QVERIFY(!other.isKnown());
    QCOMPARE(other.doubts, {StartDoubt::PatternUnfit});
}

void TestStartInName::badPatternsAreRefused_data() {
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("flaw");
    const auto row = [](const char* name, const QString& pattern, const char* flaw) {
        QTest::newRow(name) << pattern << QString(flaw);
    };
    row("unknown letter", "%Y%m%d_%Q", "%Q is none of %Y %y %m");
    row("its last percent", "%Y%m%d_%H%", "it ends with a %");
    row("nothing", "", "it has no whole day");
    row("no year", "%m%d_%H%M%S", "it has no whole day");
    row("no day", "%Y%m_%H%M%S", "it has no whole day");
    row("no hour", "%Y%m%d_%M%S", "it has no hour");
    row("half a day", "%Y%m%d_%I%M%S", "hours of 12");
    row("both halves", "%Y%m%d_%H%M%S%p", "hours of 12");
    row("long", "%Y%m%d_%H" + QString(1000, 'x'), "it is too long");
    row("stars", "%Y%m%d_%H*******", "it has more than 6 stars");
}

void TestStartInName::badPatternsAreRefused() {
    QFETCH(QString, pattern);
    QFETCH(QString, flaw);
    const NamePattern refused(pattern);
    QVERIFY2(refused.flaw().startsWith(flaw), qPrintable(refused.flaw()));
}

/// A path can be 4096 characters long, and each of the known names is looked for in it.
void TestStartInName::hostileNamesTakeNoTime() {
    QElapsedTimer timer;
    timer.start();
    const NamePattern stars("%Y*%m*%d*%H*%M*%S*x");
    QCOMPARE(stars.flaw(), QString());
    const QString digits = QString("20261122").repeated(500);
    QVERIFY(!startInName('/' + digits, kolkata()).isKnown());
    QVERIFY(!startInName('/' + QString("2026-11-22 ").repeated(360), kolkata()).isKnown());
    QVERIFY(!startInName('/' + QString("2026-").repeated(400), kolkata(), &stars).isKnown());
    QVERIFY(!startInName(QString("/2026/11/22").repeated(360), kolkata()).isKnown());
    QVERIFY(!startInName({}, kolkata()).isKnown());
    QVERIFY2(timer.elapsed() < 5000, QByteArray::number(timer.elapsed()).constData());
}

QTEST_GUILESS_MAIN(TestStartInName)
#include "test_startinname.moc"
