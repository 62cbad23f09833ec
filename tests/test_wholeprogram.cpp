// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The whole job in the window, as a person does it, with both encoders.

#include "clipprobe.h"
#include "encoderstand.h"
#include "mainwindowdriver.h"
#include "media.h"
#include "mouse.h"
#include "widgeteditor.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

constexpr int longMilliseconds = 60000;

/// Bytes of this process that lie in memory.
qint64 residentBytes() {
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * 4096;
}

} // namespace

class TestWholeProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void fromAddingToOpening();
    void encoderArguments_data();
    void encoderArguments();
    void staysResponsive();
    void twoThousandClips();

public Q_SLOTS:
    void noteUrl(const QUrl& url) { openedUrls.append(url); }

private:
    bool allClipsRead(const char* status);

    QTemporaryDir recordings;
    QString plainRecording;
    QString intraCodedRecording;
    std::unique_ptr<QTemporaryDir> clips;
    std::unique_ptr<EncoderStand> encoder;
    std::unique_ptr<MainWindowDriver> driver;
    QList<QUrl> openedUrls;
};

void TestWholeProgram::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    plainRecording = recordings.filePath("garden.mp4");
    intraCodedRecording = recordings.filePath("garden.avi");
    const QStringList scene = media::crossingBox(20, 7, 13, "160x120");
    QVERIFY(media::encode(scene + QStringList{"-c:v", "libx264", "-preset", "ultrafast", "-g", "25",
                                              plainRecording}));
    QVERIFY(media::encode(scene + QStringList{"-c:v", "mjpeg", intraCodedRecording}));
}

void TestWholeProgram::init() {
    QSettings().clear();
    openedUrls.clear();
    clips = std::make_unique<QTemporaryDir>();
    QSettings().setValue("export_dir", clips->path());
    QSettings().setValue("export_prerecord", 1.5);
    QSettings().setValue("export_postrecord", 2.0);
    QSettings().setValue("export_minimum", 2.0);
    encoder = std::make_unique<EncoderStand>();
    QDesktopServices::setUrlHandler("file", this, "noteUrl");
    driver = std::make_unique<MainWindowDriver>();
    driver->window.show();
}

void TestWholeProgram::cleanup() {
    QDesktopServices::unsetUrlHandler("file");
    encoder->release();
    QTRY_COMPARE_WITH_TIMEOUT(Clip::exportQueueLength(), 0, longMilliseconds);
    driver.reset();
    encoder.reset();
    clips.reset();
}

bool TestWholeProgram::allClipsRead(const char* status) {
    const QStringList captions = driver->captions();
    return std::all_of(captions.begin(), captions.end(), [status](const QString& line) {
        return line.endsWith(QString("(%1)").arg(status));
    });
}

void TestWholeProgram::fromAddingToOpening() {
    encoder->useRealEncoder();
    driver->addFiles({plainRecording});
    QVERIFY(driver->setup.isVisible());
    QVERIFY(QTest::qWaitForWindowExposed(&driver->setup));
    auto& editor = driver->setupPart<WidgetEditor>("maskEditor");
    const QPoint centre = editor.rect().center();
    mouse::stroke(editor, {centre - QPoint(300, 200), centre, centre + QPoint(300, 100)});
    QVERIFY(driver->setupPart<QPushButton>("pushButtonClear").isEnabled());
    driver->clickSetup("pushButtonAdd");
    QVERIFY(!driver->setup.isVisible());

    QTRY_VERIFY_WITH_TIMEOUT(driver->list().count() > 0, longMilliseconds);
    const Video* job = driver->clip(0).video;
    QVERIFY(job->roiRect);
    QTRY_COMPARE_WITH_TIMEOUT(int(job->state), int(Video::Finished), longMilliseconds);
    QVERIFY(allClipsRead("not exported"));
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_VERIFY_WITH_TIMEOUT(allClipsRead("exported"), longMilliseconds);

    const Clip& clip = driver->clip(0);
    QCOMPARE(clip.outputPath, clips->filePath("garden_mp4_0/0000.avi"));
    const ClipProbe probe = probeClip(clip.outputPath);
    QVERIFY(probe.isPlayable);
    const int length = int(clip.end - clip.start);
    QVERIFY2(probe.seconds > length - 0.1 && probe.seconds < length + 1.1,
             qPrintable(QString::number(probe.seconds)));
    const QRect place = driver->list().visualItemRect(&driver->clip(0));
    QTest::mouseClick(driver->list().viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(driver->list().viewport(), Qt::LeftButton, {}, place.center());
    QCOMPARE(openedUrls, QList<QUrl>({QUrl("file:///" + clip.outputPath)}));
}

void TestWholeProgram::encoderArguments_data() {
    QTest::addColumn<bool>("isIntraCoded");
    QTest::addColumn<bool>("hasTimestamps");
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<QStringList>("arguments"); // IN, OUT, S, D, F stand for themselves
    const QStringList end = {"-avoid_negative_ts", "disabled", "OUT"};
    const QStringList start = {"-nostats", "-y", "-ss", "S", "-i", "IN", "-t", "D"};
    const QStringList intraStart = {"-nostats", "-y", "-i", "IN", "-ss", "S", "-t", "D"};
    const QStringList audio = {"-acodec", "copy"};
    const QStringList bitrate = {"-b:v", "2097152"};
    const QStringList copy = {"-vcodec", "copy"};
    const QStringList overlay = {"-vf", "F"};
    const QVariantMap silent = {{"disable_audio", true}};
    QTest::newRow("stream copy, audio kept")
        << false << false << QVariantMap() << start + copy + audio + end;
    QTest::newRow("stream copy, audio off")
        << false << false << silent << start + copy + QStringList{"-an"} + end;
    QTest::newRow("forced re-encode")
        << false << false << QVariantMap{{"do_transcoding", true}} << start + bitrate + audio + end;
    QTest::newRow("forced re-encode, audio off, 0.5 Mbit")
        << false << false
        << QVariantMap{{"do_transcoding", true}, {"disable_audio", true}, {"bitrate_output", 0.5}}
        << start + QStringList{"-b:v", "524288", "-an"} + end;
    QTest::newRow("intra-coded source")
        << true << false << QVariantMap() << intraStart + bitrate + audio + end;
    QTest::newRow("intra-coded source, audio off")
        << true << false << silent << intraStart + bitrate + QStringList{"-an"} + end;
    QTest::newRow("timestamps") << false << true << QVariantMap()
                                << start + overlay + bitrate + audio + end;
    QTest::newRow("timestamps, audio off")
        << false << true << silent << start + overlay + bitrate + QStringList{"-an"} + end;
    QTest::newRow("timestamps, intra-coded source")
        << true << true << QVariantMap() << intraStart + overlay + bitrate + audio + end;
}

void TestWholeProgram::encoderArguments() {
    QFETCH(bool, isIntraCoded);
    QFETCH(bool, hasTimestamps);
    QFETCH(QVariantMap, settings);
    QFETCH(QStringList, arguments);
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        QSettings().setValue(setting.key(), setting.value());

    const QString recording = isIntraCoded ? intraCodedRecording : plainRecording;
    driver->addFiles({recording});
    driver->setupPart<QCheckBox>("checkBoxExport").setChecked(true);
    if (hasTimestamps) {
        driver->setupPart<QCheckBox>("checkBoxExportTimestamp").click();
        driver->setupPart<QDateTimeEdit>("dateTimeEdit")
            .setDateTime(QDateTime(QDate(2026, 11, 16), QTime(9, 5, 0), Qt::UTC));
    }
    driver->clickSetup("pushButtonAdd");
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    QTRY_VERIFY(allClipsRead("exported"));

    // The box crosses from second 7 to 13. Half of the last 2 s is motion at about second 8, and
    // the clip starts 1.5 s before them; it lasts until 2 s after the motion.
    const Clip& clip = driver->clip(0);
    QVERIFY2(qAbs(clip.start - 4.5) < 0.4, qPrintable(QString::number(clip.start)));
    QVERIFY2(qAbs(clip.end - 15.0) < 0.4, qPrintable(QString::number(clip.end)));
    const QString folder = isIntraCoded ? "garden_avi_0" : "garden_mp4_0";
    const QString overlay = QString("drawtext=fontfile=DejaVuSansMono.ttf:text='Mon Nov 16 2026 "
                                    "%{pts\\:hms\\:%1}':x=10:y=10:fontcolor=white:box=1:"
                                    "boxborderw=3:boxcolor=0x00000000@1")
                                .arg(9 * 3600 + 5 * 60 + int(clip.start));
    const QMap<QString, QString> values = {{"IN", recording},
                                           {"OUT", clips->filePath(folder + "/0000.avi")},
                                           {"S", QString::number(int(clip.start))},
                                           {"D", QString::number(int(clip.end - clip.start))},
                                           {"F", overlay}};
    for (QString& argument : arguments)
        argument = values.value(argument, argument);
    QCOMPARE(encoder->calls(), QList<QStringList>({arguments}));
    qInfo().noquote() << "encoder called with" << arguments.join(' ');
}

void TestWholeProgram::staysResponsive() {
    const QString large = recordings.filePath("large.mp4");
    QVERIFY(media::encode(media::crossingBox(6, 1, 5, "3840x2160") +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", large}));
    driver->addFiles({large});
    driver->clickSetup("pushButtonAdd");
    QElapsedTimer sinceTick;
    qint64 longestGap = 0;
    QTimer ticks;
    connect(&ticks, &QTimer::timeout, this, [&] {
        longestGap = qMax(longestGap, sinceTick.isValid() ? sinceTick.elapsed() : 0);
        sinceTick.start();
    });
    ticks.start(5);
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    const Video* job = driver->clip(0).video;
    QTRY_COMPARE_WITH_TIMEOUT(int(job->state), int(Video::Finished), longMilliseconds);
    qInfo("3840x2160, %d pictures: events waited %lld ms at most", job->motionValues.size(),
          longestGap);
    QVERIFY(longestGap < 1000); // some 30 ms where nothing else runs
}

void TestWholeProgram::twoThousandClips() {
    constexpr int count = 2000;
    auto* job = new Video("missing.mp4", clips->path(), 1.0, 1.0, 5.0, 0, false, nullptr, nullptr,
                          false, QDateTime());
    driver->accept(job);
    QTRY_COMPARE(int(job->state), int(Video::Failed));
    const qint64 before = residentBytes();
    QElapsedTimer timer;
    timer.start();
    for (int index = 0; index < count; ++index) {
        QImage snapshot(320, 180, QImage::Format_RGB32);
        snapshot.fill(QColor::fromHsv(index % 360, 200, 200));
        Q_EMIT job->newClip(index, snapshot, index, index + 5.0, index + 1.0);
    }
    QCoreApplication::processEvents();
    const auto added = timer.restart();
    const qint64 bytes = residentBytes() - before;
    driver->list().selectAll();
    QCoreApplication::processEvents();
    const auto selected = timer.restart();
    driver->list().scrollToBottom();
    driver->list().repaint();
    const auto scrolled = timer.restart();
    driver->trigger("actionRemoveAll");
    QCoreApplication::processEvents();
    const auto removed = timer.elapsed();
    qInfo("%d clips: %.0f MB (%.0f KB each), add %lld ms, select all %lld ms, scroll to the end "
          "%lld ms, remove all %lld ms",
          count, double(bytes) / 1e6, double(bytes) / 1e3 / count, added, selected, scrolled,
          removed);
    QCOMPARE(driver->list().count(), 0);
    QVERIFY(bytes < 2LL * count * 320 * 180 * 4); // one copy of each picture
    QVERIFY(selected < 2000);
    QVERIFY(removed < 5000);
}

QTEST_MAIN(TestWholeProgram)
#include "test_wholeprogram.moc"
