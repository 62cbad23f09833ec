// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What the real encoder makes of clips.

#include "clip.h"
#include "clipprobe.h"
#include "encoderstand.h"
#include "media.h"
#include "video.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class TestClipFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void exports_data();
    void exports();
    void overlay();
    void intraCodedRecording();

private:
    std::unique_ptr<Video> makeJob(bool exportTimestamps = false,
                                   const QDateTime& start = {}) const;
    QString makeRecording(const QString& name, const QStringList& codec) const;
    std::unique_ptr<Clip> exportOne(Video& job, double start, double end);

    std::unique_ptr<QTemporaryDir> folder;
    EncoderStand encoder;
    QString videoName;
};

void TestClipFiles::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    encoder.useRealEncoder();
}

void TestClipFiles::init() {
    QSettings().clear();
    folder = std::make_unique<QTemporaryDir>();
}

std::unique_ptr<Video> TestClipFiles::makeJob(bool exportTimestamps, const QDateTime& start) const {
    return std::make_unique<Video>(videoName, folder->path(), 1.0, 1.0, 5.0, 0, false, nullptr,
                                   nullptr, exportTimestamps, start);
}

/// 12 s with sound, a key frame every second.
QString TestClipFiles::makeRecording(const QString& name, const QStringList& codec) const {
    QString fileName = folder->filePath(name);
    const QStringList sound = {"-f", "lavfi", "-i", "sine=frequency=440:duration=12"};
    const QStringList output = {"-g", "25", "-c:a", "aac", "-shortest", fileName};
    if (!media::encode(sound + media::crossingBox(12, 3, 9) + codec + output))
        return {};
    return fileName;
}

std::unique_ptr<Clip> TestClipFiles::exportOne(Video& job, double start, double end) {
    auto clip =
        std::make_unique<Clip>(&job, 0, QImage(320, 240, QImage::Format_RGB32), start, end, start);
    clip->exportClip(false);
    if (!QTest::qWaitFor([&clip] { return clip->status != Clip::Exporting; }, 60000))
        qWarning("the encoder does not end");
    return clip;
}

void TestClipFiles::exports_data() {
    QTest::addColumn<int>("outputFormat");
    QTest::addColumn<bool>("doTranscoding");
    QTest::addColumn<bool>("disableAudio");
    QTest::addColumn<QString>("codec");
    QTest::newRow("AVI, copy") << 0 << false << false << "h264";
    QTest::newRow("MP4, copy") << 1 << false << false << "h264";
    QTest::newRow("MKV, copy, no sound") << 2 << false << true << "h264";
    QTest::newRow("AVI, re-encoded") << 0 << true << true << "mpeg4";
    QTest::newRow("MP4, re-encoded") << 1 << true << false << "h264";
    QTest::newRow("MKV, re-encoded") << 2 << true << false << "h264";
}

void TestClipFiles::exports() {
    QFETCH(int, outputFormat);
    QFETCH(bool, doTranscoding);
    QFETCH(bool, disableAudio);
    QFETCH(QString, codec);
    QSettings().setValue("output_format", outputFormat);
    QSettings().setValue("do_transcoding", doTranscoding);
    QSettings().setValue("disable_audio", disableAudio);
    videoName = makeRecording("garden.mp4", {"-c:v", "libx264", "-preset", "ultrafast"});
    QVERIFY(!videoName.isEmpty());
    const auto job = makeJob();
    const auto clip = exportOne(*job, 2.6, 8.2);
    QCOMPARE(clip->status, int(Clip::Exported));

    const ClipProbe probe = probeClip(clip->outputPath);
    QVERIFY(probe.isPlayable);
    QCOMPARE(probe.videoCodec, codec);
    QCOMPARE(probe.hasSound, !disableAudio);
    // 5 whole seconds; a copy starts at the key frame before, up to a second earlier.
    const double earliest = doTranscoding ? 0.0 : 1.0;
    QVERIFY2(probe.seconds > 4.9 && probe.seconds < 5.1 + earliest,
             qPrintable(QString::number(probe.seconds)));
    QVERIFY(!hasOverlay(firstPicture(clip->outputPath)));
}

void TestClipFiles::overlay() {
    videoName = makeRecording("garden.mp4", {"-c:v", "libx264", "-preset", "ultrafast"});
    QVERIFY(!videoName.isEmpty());
    const auto job = makeJob(true, QDateTime(QDate(2026, 11, 16), QTime(9, 5, 0), Qt::UTC));
    const auto clip = exportOne(*job, 2.6, 8.2);
    QCOMPARE(clip->status, int(Clip::Exported));
    QVERIFY(probeClip(clip->outputPath).isPlayable);
    QVERIFY(hasOverlay(firstPicture(clip->outputPath)));
    QVERIFY(!hasOverlay(firstPicture(videoName)));
}

void TestClipFiles::intraCodedRecording() {
    videoName = makeRecording("garden.avi", {"-c:v", "mjpeg"});
    QVERIFY(!videoName.isEmpty());
    const auto job = makeJob();
    job->intraCodec = true;
    const auto clip = exportOne(*job, 2.6, 8.2);
    QCOMPARE(clip->status, int(Clip::Exported));
    const ClipProbe probe = probeClip(clip->outputPath);
    QVERIFY(probe.isPlayable);
    QCOMPARE(probe.videoCodec, QString("mpeg4"));
    QVERIFY2(probe.seconds > 4.9 && probe.seconds < 5.1,
             qPrintable(QString::number(probe.seconds)));
}

QTEST_MAIN(TestClipFiles)
#include "test_clipfiles.moc"
