// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderarguments.h"

#include <QtTest>

#include <limits>

namespace {

const QString overlay = "drawtext=fontfile=DejaVuSansMono.ttf:text='Mon Nov 16 2026 "
                        "%{pts\\:hms\\:32703}':x=10:y=10:fontcolor=white:box=1:boxborderw=3:"
                        "boxcolor=0x00000000@1";

EncodedClip clip() {
    return {3, 12.9, 40.2, 32703};
}

EncodedVideo video() {
    EncodedVideo video;
    video.fileName = "/videos/garden.cam.mp4";
    video.clipDirectory = "/clips/garden_mp4_0";
    video.startDateTime = QDateTime(QDate(2026, 11, 16), QTime(9, 5, 0), Qt::UTC);
    return video;
}

EncodedVideo intraCodedVideo() {
    EncodedVideo intraCoded = video();
    intraCoded.isIntraCodec = true;
    return intraCoded;
}

EncodedVideo numberedVideo() {
    EncodedVideo numbered = video();
    numbered.frameRate = 12.5;
    return numbered;
}

EncodedVideo readAs(const QString& format, EncodedVideo video) {
    video.inputFormat = format;
    return video;
}

EncodedVideo withTimestamps(EncodedVideo video) {
    video.exportTimestamps = true;
    return video;
}

EncodingSettings reencoding() {
    EncodingSettings settings;
    settings.doTranscoding = true;
    return settings;
}

EncodingSettings withoutAudio(EncodingSettings settings = {}) {
    settings.disableAudio = true;
    return settings;
}

} // namespace

Q_DECLARE_METATYPE(Container)
Q_DECLARE_METATYPE(EncodedVideo)
Q_DECLARE_METATYPE(EncodingSettings)

class TestEncoderArguments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void arguments_data();
    void arguments();
    void overlayClock_data();
    void overlayClock();
    void bitrate_data();
    void bitrate();
    void outputPath_data();
    void outputPath();
    void secondsAreWhole_data();
    void secondsAreWhole();
    void namesWithPlaceholdersStay();
};

void TestEncoderArguments::arguments_data() {
    QTest::addColumn<EncodedVideo>("source");
    QTest::addColumn<EncodingSettings>("settings");
    QTest::addColumn<QStringList>("arguments");
    const QString in = "/videos/garden.cam.mp4";
    const QString out = "/clips/garden_mp4_0/0003.avi";

    QTest::newRow("stream copy, audio kept") << video() << EncodingSettings()
                                             << QStringList{"-nostats",
                                                            "-y",
                                                            "-ss",
                                                            "12",
                                                            "-i",
                                                            in,
                                                            "-t",
                                                            "27",
                                                            "-vcodec",
                                                            "copy",
                                                            "-acodec",
                                                            "copy",
                                                            "-avoid_negative_ts",
                                                            "disabled",
                                                            out};
    QTest::newRow("read as what it is")
        << readAs("mov", video()) << EncodingSettings()
        << (QStringList{"-nostats", "-y", "-ss", "12", "-protocol_whitelist", "file", "-f", "mov"} +
            QStringList{"-i", in, "-t", "27", "-vcodec", "copy", "-acodec", "copy"} +
            QStringList{"-avoid_negative_ts", "disabled", out});
    QTest::newRow("read as what it is, numbered")
        << readAs("h264", numberedVideo()) << EncodingSettings()
        << (QStringList{"-nostats", "-y", "-r", "12.5", "-protocol_whitelist", "file"} +
            QStringList{"-f", "h264", "-i", in, "-ss", "12", "-t", "27", "-b:v", "2097152"} +
            QStringList{"-acodec", "copy", "-avoid_negative_ts", "disabled", out});
    QTest::newRow("stream copy, audio off")
        << video() << withoutAudio()
        << QStringList{"-nostats", "-y", "-ss",     "12",   "-i",  in,
                       "-t",       "27", "-vcodec", "copy", "-an", "-avoid_negative_ts",
                       "disabled", out};
    QTest::newRow("forced re-encode") << video() << reencoding()
                                      << QStringList{"-nostats",
                                                     "-y",
                                                     "-ss",
                                                     "12",
                                                     "-i",
                                                     in,
                                                     "-t",
                                                     "27",
                                                     "-b:v",
                                                     "2097152",
                                                     "-acodec",
                                                     "copy",
                                                     "-avoid_negative_ts",
                                                     "disabled",
                                                     out};
    QTest::newRow("forced re-encode, audio off")
        << video() << withoutAudio(reencoding())
        << QStringList{"-nostats", "-y", "-ss",  "12",      "-i",  in,
                       "-t",       "27", "-b:v", "2097152", "-an", "-avoid_negative_ts",
                       "disabled", out};
    QTest::newRow("intra-coded source") << intraCodedVideo() << EncodingSettings()
                                        << QStringList{"-nostats",
                                                       "-y",
                                                       "-i",
                                                       in,
                                                       "-ss",
                                                       "12",
                                                       "-t",
                                                       "27",
                                                       "-b:v",
                                                       "2097152",
                                                       "-acodec",
                                                       "copy",
                                                       "-avoid_negative_ts",
                                                       "disabled",
                                                       out};
    QTest::newRow("intra-coded source, audio off")
        << intraCodedVideo() << withoutAudio()
        << QStringList{"-nostats", "-y", "-i",   in,        "-ss", "12",
                       "-t",       "27", "-b:v", "2097152", "-an", "-avoid_negative_ts",
                       "disabled", out};
    QTest::newRow("numbered pictures, audio off")
        << numberedVideo() << withoutAudio()
        << QStringList{"-nostats", "-y", "-r", "12.5", "-i",      in,    "-ss",
                       "12",       "-t", "27", "-b:v", "2097152", "-an", "-avoid_negative_ts",
                       "disabled", out};
    QTest::newRow("intra-coded source, forced re-encode") << intraCodedVideo() << reencoding()
                                                          << QStringList{"-nostats",
                                                                         "-y",
                                                                         "-i",
                                                                         in,
                                                                         "-ss",
                                                                         "12",
                                                                         "-t",
                                                                         "27",
                                                                         "-b:v",
                                                                         "2097152",
                                                                         "-acodec",
                                                                         "copy",
                                                                         "-avoid_negative_ts",
                                                                         "disabled",
                                                                         out};
    QTest::newRow("timestamps") << withTimestamps(video()) << EncodingSettings()
                                << QStringList{"-nostats", "-y",   "-ss",
                                               "12",       "-i",   in,
                                               "-t",       "27",   "-vf",
                                               overlay,    "-b:v", "2097152",
                                               "-acodec",  "copy", "-avoid_negative_ts",
                                               "disabled", out};
    QTest::newRow("timestamps, audio off")
        << withTimestamps(video()) << withoutAudio()
        << QStringList{"-nostats", "-y",  "-ss",   "12",   "-i",      in,    "-t",
                       "27",       "-vf", overlay, "-b:v", "2097152", "-an", "-avoid_negative_ts",
                       "disabled", out};
    QTest::newRow("timestamps, forced re-encode")
        << withTimestamps(video()) << reencoding()
        << QStringList{"-nostats", "-y",      "-ss",     "12",   "-i",
                       in,         "-t",      "27",      "-vf",  overlay,
                       "-b:v",     "2097152", "-acodec", "copy", "-avoid_negative_ts",
                       "disabled", out};
    QTest::newRow("timestamps, intra-coded source")
        << withTimestamps(intraCodedVideo()) << EncodingSettings()
        << QStringList{"-nostats", "-y",      "-i",      in,     "-ss",
                       "12",       "-t",      "27",      "-vf",  overlay,
                       "-b:v",     "2097152", "-acodec", "copy", "-avoid_negative_ts",
                       "disabled", out};
    QTest::newRow("timestamps, intra-coded source, audio off")
        << withTimestamps(intraCodedVideo()) << withoutAudio()
        << QStringList{"-nostats", "-y",  "-i",    in,     "-ss",     "12",  "-t",
                       "27",       "-vf", overlay, "-b:v", "2097152", "-an", "-avoid_negative_ts",
                       "disabled", out};
}

void TestEncoderArguments::arguments() {
    QFETCH(EncodedVideo, source);
    QFETCH(EncodingSettings, settings);
    QFETCH(QStringList, arguments);
    const EncoderCall call = encoderCall(clip(), source, settings);
    QCOMPARE(call.arguments, arguments);
    QCOMPARE(call.outputPath, arguments.last());
}

void TestEncoderArguments::overlayClock_data() {
    QTest::addColumn<bool>("isIntraCodec");
    QTest::addColumn<double>("start");
    QTest::addColumn<int>("secondOfDay");
    QTest::addColumn<int>("offset");
    // The encoder adds it to the times of the pictures: from 12 s on where each stands alone.
    QTest::newRow("intra-coded") << true << 12.9 << 32712 << 32700;
    QTest::newRow("other") << false << 12.9 << 32712 << 32712;
    QTest::newRow("behind midnight") << true << 7200.0 << 3600 << -3600;
    QTest::newRow("before the first picture") << true << -1.2 << 32699 << 32700;
}

void TestEncoderArguments::overlayClock() {
    QFETCH(bool, isIntraCodec);
    QFETCH(double, start);
    QFETCH(int, secondOfDay);
    QFETCH(int, offset);
    EncodedVideo source = withTimestamps(video());
    source.isIntraCodec = isIntraCodec;
    const EncodedClip cut = {0, start, start + 9.0, secondOfDay};
    const auto filter = [&](OverlayClock clock) {
        const QStringList arguments = encoderCall(cut, source, {}, clock).arguments;
        return arguments.value(arguments.indexOf("-vf") + 1);
    };
    const QString shown = "%{pts\\:hms\\:" + QString::number(offset) + "}'";
    QVERIFY2(filter(OverlayClock::VideoStart).contains(shown),
             qPrintable(filter(OverlayClock::VideoStart)));
    const QString always = "%{pts\\:hms\\:" + QString::number(secondOfDay) + "}'";
    QVERIFY(filter(OverlayClock::ClipStart).contains(always));
}

void TestEncoderArguments::bitrate_data() {
    QTest::addColumn<double>("megabits");
    QTest::addColumn<QString>("argument");
    QTest::newRow("half") << 0.5 << "524288";
    QTest::newRow("zero") << 0.0 << "10240";
    QTest::newRow("dialog's maximum") << 50.0 << "52428800";
    QTest::newRow("above the highest") << 1000.0 << "104857600";
}

void TestEncoderArguments::bitrate() {
    QFETCH(double, megabits);
    QFETCH(QString, argument);
    EncodingSettings settings = reencoding();
    settings.bitrateOutput = megabits;
    const QStringList arguments = encoderCall(clip(), video(), settings).arguments;
    QCOMPARE(arguments.value(arguments.indexOf("-b:v") + 1), argument);
}

void TestEncoderArguments::outputPath_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<Container>("container");
    QTest::addColumn<QString>("name");
    QTest::newRow("AVI") << 0 << Container::Avi << "0000.avi";
    QTest::newRow("MP4") << 0 << Container::Mp4 << "0000.mp4";
    QTest::newRow("MKV") << 0 << Container::Mkv << "0000.mkv";
    QTest::newRow("four digits") << 9999 << Container::Mp4 << "9999.mp4";
    QTest::newRow("five digits") << 12345 << Container::Avi << "12345.avi";
}

void TestEncoderArguments::outputPath() {
    QFETCH(int, index);
    QFETCH(Container, container);
    QFETCH(QString, name);
    EncodedClip numbered = clip();
    numbered.index = index;
    EncodingSettings settings;
    settings.container = container;
    const EncoderCall call = encoderCall(numbered, video(), settings);
    QCOMPARE(call.outputPath, "/clips/garden_mp4_0/" + name);
    QCOMPARE(call.arguments.last(), call.outputPath);
}

void TestEncoderArguments::secondsAreWhole_data() {
    using Limits = std::numeric_limits<double>;
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::addColumn<QString>("startArgument");
    QTest::addColumn<QString>("lengthArgument");
    QTest::newRow("length is not the difference of whole seconds") << 1.9 << 3.0 << "1"
                                                                   << "1";
    QTest::newRow("shorter than a second") << 5.0 << 5.9 << "5"
                                           << "0";
    QTest::newRow("toward zero") << -0.5 << 2.0 << "0"
                                 << "2";
    QTest::newRow("huge") << 1e300 << -1e300 << "2147483647"
                          << "-2147483648";
    QTest::newRow("not a number") << Limits::quiet_NaN() << 1.0 << "0"
                                  << "0";
}

void TestEncoderArguments::secondsAreWhole() {
    QFETCH(double, start);
    QFETCH(double, end);
    QFETCH(QString, startArgument);
    QFETCH(QString, lengthArgument);
    const QStringList arguments = encoderCall({0, start, end, 0}, video(), {}).arguments;
    QCOMPARE(arguments[3], startArgument);
    QCOMPARE(arguments[7], lengthArgument);
}

void TestEncoderArguments::namesWithPlaceholdersStay() {
    EncodedVideo source = video();
    source.fileName = "/videos/100%1 %2.mp4";
    source.clipDirectory = "/clips/%2 %3";
    const EncoderCall call = encoderCall(clip(), source, {});
    QCOMPARE(call.arguments[5], source.fileName);
    QCOMPARE(call.outputPath, QString("/clips/%2 %3/0003.avi"));
}

QTEST_GUILESS_MAIN(TestEncoderArguments)
#include "test_encoderarguments.moc"
