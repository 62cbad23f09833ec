// Real recordings through the window: the clips that are expected, each exported.

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

QString caption(const ExpectedClip& clip, const char* status) {
    return QString("#%1 %2 (%3 sec) (%4)")
        .arg(clip.index)
        .arg(QTime(0, 0).addSecs(int(clip.start)).toString("H:mm:ss"))
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
    KESTROVA_REQUIRE_FOOTAGE();
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings().clear();
}

void TestWindowFootage::captionsAndExports_data() {
    QTest::addColumn<double>("keyFrameInterval"); // the longest of the recording, seconds
    QTest::newRow("cars-from-above.mp4") << 4.8;
    QTest::newRow("highway.avi") << 0.4;
    QTest::newRow("junction-vfr.mp4") << 18.5;
}

void TestWindowFootage::captionsAndExports() {
    QFETCH(double, keyFrameInterval);
    const QString name = QTest::currentDataTag();
    const auto expected =
        expectedClips(footageDirectory() + "/expected/" + name + ".defaults.jsonl");
    QVERIFY(!expected.isEmpty());
    const QTemporaryDir clips;
    QSettings().setValue("export_dir", clips.path());
    EncoderStand encoder;
    encoder.useRealEncoder();
    MainWindowDriver window;
    window.addFiles({footageDirectory() + '/' + name});
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
        const int length = int(expected[row].end - expected[row].start);
        qInfo("%s %d: %d s asked for, %.2f s and %d pictures written", qPrintable(name), row,
              length, probe.seconds, probe.pictures);
        QVERIFY(probe.isPlayable);
        QVERIFY(probe.seconds > length - 1.0);
        QVERIFY(probe.seconds < length + keyFrameInterval);
    }
}

QTEST_MAIN(TestWindowFootage)
#include "test_windowfootage.moc"
