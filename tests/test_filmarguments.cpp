// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filmarguments.h"

#include <QtTest>

namespace {

const QString fitted = "scale=w='max(2,2*round(min(640,360*dar)/2))'"
                       ":h='max(2,2*round(min(360,640/dar)/2))',"
                       "pad=640:360:(ow-iw)/2:(oh-ih)/2,setsar=1";

const QStringList pictures = {"-an",      "-sn",     "-dn", "-fps_mode", "passthrough",
                              "-pix_fmt", "yuv420p", "-f",  "rawvideo",  "pipe:1"};

Film film(double speed = 1.0) {
    Film film;
    film.size = {640, 360};
    film.rate = "30000/1001";
    film.speed = speed;
    return film;
}

FilmStretch stretch(double start = 12.9, double end = 40.2) {
    FilmStretch stretch;
    stretch.fileName = "/videos/garden.mp4";
    stretch.inputFormat = "mov";
    stretch.start = start;
    stretch.end = end;
    return stretch;
}

} // namespace

Q_DECLARE_METATYPE(Container)
Q_DECLARE_METATYPE(FilmStretch)

class TestFilmArguments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stretches_data();
    void stretches();
    void films_data();
    void films();
    void aPictureIsTwelveBitsPerPixel();
};

void TestFilmArguments::stretches_data() {
    QTest::addColumn<FilmStretch>("stretch");
    QTest::addColumn<double>("speed");
    QTest::addColumn<QStringList>("input");
    QTest::addColumn<QString>("filters");
    const QStringList asMov = {"-nostats", "-protocol_whitelist", "file", "-f", "mov"};
    const QStringList file = {"-i", "/videos/garden.mp4"};
    QTest::newRow("from the whole second before it")
        << stretch() << 1.0 << asMov + QStringList{"-ss", "12", "-t", "28.200"} + file
        << "fps=30000/1001/1," + fitted;
    QTest::newRow("eight times as fast")
        << stretch() << 8.0 << asMov + QStringList{"-ss", "12", "-t", "28.200"} + file
        << "fps=30000/1001/8," + fitted;
    QTest::newRow("half speeds") << stretch() << 2.5
                                 << asMov + QStringList{"-ss", "12", "-t", "28.200"} + file
                                 << "fps=30000/1001/2.5," + fitted;
    QTest::newRow("before the first picture")
        << stretch(-2.5, 6.6) << 1.0 << asMov + QStringList{"-ss", "0", "-t", "6.600"} + file
        << "fps=30000/1001/1," + fitted;

    FilmStretch timed = stretch();
    timed.begin = QDateTime(QDate(2026, 11, 16), QTime(9, 5, 0), Qt::UTC);
    const QString clock = ",drawtext=fontfile=DejaVuSansMono.ttf:text='%1 %{pts\\:hms\\:%2}':"
                          "x=10:y=10:fontcolor=white:box=1:boxborderw=3:boxcolor=0x00000000@1";
    QTest::newRow("with the clock") // 9:05:12 is 32712 seconds behind midnight
        << timed << 1.0 << asMov + QStringList{"-ss", "12", "-t", "28.200"} + file
        << "fps=30000/1001/1," + fitted + QString(clock).arg("Mon Nov 16 2026", "32712");
    timed.begin = QDateTime(QDate(2026, 11, 16), QTime(23, 59, 50), Qt::UTC);
    QTest::newRow("on the next day")
        << timed << 4.0 << asMov + QStringList{"-ss", "12", "-t", "28.200"} + file
        << "fps=30000/1001/4," + fitted + QString(clock).arg("Tue Nov 17 2026", "2");

    FilmStretch numbered = stretch();
    numbered.frameRate = 12.5;
    numbered.inputFormat = "h264";
    QTest::newRow("without times of its own")
        << numbered << 1.0
        << QStringList{"-nostats", "-r", "12.5", "-protocol_whitelist", "file", "-f", "h264"} + file
        << "trim=start=12:end=40.200,setpts=PTS-STARTPTS,fps=30000/1001/1," + fitted;
}

void TestFilmArguments::stretches() {
    QFETCH(FilmStretch, stretch);
    QFETCH(double, speed);
    QFETCH(QStringList, input);
    QFETCH(QString, filters);
    const QStringList expected = input + QStringList{"-vf", filters} + pictures;
    QCOMPARE(stretchArguments(stretch, film(speed)), expected);
}

void TestFilmArguments::films_data() {
    QTest::addColumn<Container>("container");
    QTest::addColumn<QString>("muxer");
    QTest::newRow("avi") << Container::Avi << "avi";
    QTest::newRow("mp4") << Container::Mp4 << "mp4";
    QTest::newRow("mkv") << Container::Mkv << "matroska";
}

void TestFilmArguments::films() {
    QFETCH(Container, container);
    QFETCH(QString, muxer);
    Film wanted = film();
    wanted.container = container;
    wanted.megabits = 3.0;
    const QStringList expected = {"-nostats",
                                  "-y",
                                  "-protocol_whitelist",
                                  "pipe",
                                  "-f",
                                  "rawvideo",
                                  "-pixel_format",
                                  "yuv420p",
                                  "-video_size",
                                  "640x360",
                                  "-framerate",
                                  "30000/1001",
                                  "-i",
                                  "pipe:0",
                                  "-b:v",
                                  "3145728",
                                  "-f",
                                  muxer,
                                  "/films/night.mp4.a1b2c3"};
    QCOMPARE(filmArguments(wanted, "/films/night.mp4.a1b2c3"), expected);
}

void TestFilmArguments::aPictureIsTwelveBitsPerPixel() {
    QCOMPARE(film().pictureBytes(), 640 * 360 * 12 / 8);
    Film large;
    large.size = {4096, 4096};
    QCOMPARE(large.pictureBytes(), 25165824);
}

QTEST_APPLESS_MAIN(TestFilmArguments)
#include "test_filmarguments.moc"
