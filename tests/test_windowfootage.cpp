// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Whole recordings through the window: the clips that are expected, each exported.

#include "clipprobe.h"
#include "encoderstand.h"
#include "footage.h"
#include "mainwindowdriver.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int longMilliseconds = 120000;

struct ExpectedClip {
    int index;
    double start;
    double end;
};

QList<ExpectedClip> expectedClips(const QString& fileName) {
    QList<ExpectedClip> clips;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return clips;
    while (!file.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
        if (line.contains("start"))
            clips.append({line["index"].toInt(), line["start"].toDouble(), line["end"].toDouble()});
    }
    return clips;
}

/// A clip that starts before time 0 shows its seconds with their sign.
QString caption(const ExpectedClip& clip, const char* status) {
    const int start = int(clip.start);
    return QString("#%1 %2:%3:%4 (%5 sec) (%6)")
        .arg(clip.index)
        .arg(start / 3600)
        .arg(start / 60 % 60, 2, 10, QChar('0'))
        .arg(start % 60, 2, 10, QChar('0'))
        .arg(int(clip.end - clip.start))
        .arg(status);
}

bool areExported(const QStringList& captions) {
    return std::all_of(captions.begin(), captions.end(),
                       [](const QString& line) { return line.endsWith("(exported)"); });
}

} // namespace

class TestWindowFootage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void captionsAndExports_data();
    void captionsAndExports();
};

void TestWindowFootage::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings().clear();
}

void TestWindowFootage::captionsAndExports_data() {
    QTest::addColumn<QString>("folder");
    QTest::addColumn<double>("keyFrameInterval"); // the longest of the recording, seconds
    QTest::addColumn<int>("container");           // as the settings number it
    constexpr int avi = 0;
    constexpr int mkv = 2; // the encoder does not copy H.264 from here to AVI
    QTest::newRow("garden.mp4") << recordingsDirectory() << 4.0 << avi;
    QTest::newRow("gate.avi") << recordingsDirectory() << 2.1 << avi;
    QTest::newRow("night.mkv") << recordingsDirectory() << 8.8 << mkv;
    QTest::newRow("cars-from-above.mp4") << footageDirectory() << 4.8 << avi;
    QTest::newRow("highway.avi") << footageDirectory() << 0.4 << avi;
    QTest::newRow("junction-vfr.mp4") << footageDirectory() << 18.5 << avi;
}

void TestWindowFootage::captionsAndExports() {
    QFETCH(QString, folder);
    QFETCH(double, keyFrameInterval);
    QFETCH(int, container);
    KESTROVA_REQUIRE_FOLDER(folder);
    const QString name = QTest::currentDataTag();
    const auto expected = expectedClips(folder + "/expected/" + name + ".defaults.jsonl");
    QVERIFY(!expected.isEmpty());
    const QTemporaryDir clips;
    QSettings().setValue("export_dir", clips.path());
    QSettings().setValue("output_format", container);
    EncoderStand encoder;
    encoder.useRealEncoder();
    MainWindowDriver window;
    window.addFiles({folder + '/' + name});
    window.setupPart<QCheckBox>("checkBoxExport").setChecked(true);
    window.clickSetup("pushButtonAdd");
    QTRY_COMPARE_WITH_TIMEOUT(window.list().count(), expected.size(), longMilliseconds);
    QTRY_VERIFY_WITH_TIMEOUT(Clip::exportQueueLength() == 0 && areExported(window.captions()),
                             longMilliseconds);
    QStringList captions;
    for (const ExpectedClip& clip : expected)
        captions.append(caption(clip, "exported"));
    QCOMPARE(window.captions(), captions);
    for (int row = 0; row < expected.size(); ++row) {
        const ClipProbe probe = probeClip(window.clip(row).outputPath);
        // There is nothing to write before time 0.
        const int length = int(expected[row].end - qMax(0.0, expected[row].start));
        qInfo("%s %d: %d s asked for, %.2f s and %d pictures written", qPrintable(name), row,
              length, probe.seconds, probe.pictures);
        QVERIFY(probe.isPlayable);
        QVERIFY(probe.seconds > length - 1.0);
        QVERIFY(probe.seconds < length + keyFrameInterval);
    }
}

QTEST_MAIN(TestWindowFootage)
#include "test_windowfootage.moc"
