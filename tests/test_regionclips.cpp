// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "footage.h"
#include "process.h"
#include "setupwindow.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct FoundClip {
    int index;
    double start;
    double end;
    double snapshotTime;

    bool operator==(const FoundClip& other) const {
        return index == other.index && start == other.start && end == other.end &&
               snapshotTime == other.snapshotTime;
    }
};

/// The clips that the job finds, run to its end here and now.
QVector<FoundClip> detected(Video& job) {
    const QSignalSpy found(&job, SIGNAL(newClip(int, QImage, double, double, double)));
    job.detect();
    QVector<FoundClip> clips;
    for (const QList<QVariant>& clip : found)
        clips.append({clip[0].toInt(), clip[2].toDouble(), clip[3].toDouble(), clip[4].toDouble()});
    return clips;
}

/// The clips that the scanner reports; empty if it fails.
QVector<FoundClip> scanned(const QString& video, const QStringList& region) {
    const ProcessResult result =
        runProgram("kestrova-scan", QStringList{"--format", "jsonl", "--quiet", "--minimum", "1"} +
                                        region + QStringList{video});
    QVector<FoundClip> clips;
    if (result.status != 0)
        qWarning("kestrova-scan: %s", result.errors.constData());
    for (const QByteArray& line : result.output.split('\n')) {
        const QJsonObject clip = QJsonDocument::fromJson(line).object();
        if (clip.contains("start"))
            clips.append({clip["index"].toInt(), clip["start"].toDouble(), clip["end"].toDouble(),
                          clip["snapshotTime"].toDouble()});
    }
    return clips;
}

} // namespace

/// A region drawn in the window and the same region given to the scanner find the same clips.
class TestRegionClips : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase();
    void init();
    void rectangle();
    void freeShape();

private:
    void open(SetupWindow& window);

    QTemporaryDir exports;
    QString video;
    QVector<FoundClip> everywhere;
};

void TestRegionClips::initTestCase_data() {
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::newRow("shipped") << recordingsDirectory() << QString("gate.avi");
    QTest::newRow("footage") << footageDirectory() << QString("highway.avi");
}

void TestRegionClips::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().clear();
}

void TestRegionClips::init() {
    QFETCH_GLOBAL(QString, folder);
    QFETCH_GLOBAL(QString, name);
    KESTROVA_REQUIRE_FOLDER(folder);
    video = QDir(folder).filePath(name);
    everywhere = scanned(video, {});
    QVERIFY(!everywhere.isEmpty());
}

void TestRegionClips::open(SetupWindow& window) {
    window.addFile(video);
    QVERIFY(window.isVisible());
    window.setExportDirectory(exports.path());
    window.get<QDoubleSpinBox>("doubleSpinBoxMinimum").setValue(1.0);
}

void TestRegionClips::rectangle() {
    SetupWindow window;
    open(window);
    window.draw({{350, 550}, {500, 800}});
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    const QRect region = *jobs.at(0)->roiRect;
    const QStringList numbers = {QString::number(region.x()), QString::number(region.y()),
                                 QString::number(region.width()), QString::number(region.height())};
    const QVector<FoundClip> clips = detected(*jobs[0]);
    QVERIFY(!clips.isEmpty());
    QVERIFY(!(clips == everywhere)); // the region matters
    QVERIFY(clips == scanned(video, {"--roi", numbers.join(',')}));
}

void TestRegionClips::freeShape() {
    SetupWindow window;
    open(window);
    window.setFreeMode();
    window.draw({{300, 700}, {480, 450}, {520, 480}, {450, 800}});
    window.draw({{600, 600}, {700, 650}, {620, 800}});
    const QString maskFile = QDir(exports.path()).filePath("mask.png");
    QVERIFY(window.editor().mask()->save(maskFile));
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    QVERIFY(!jobs.at(0)->roiRect);
    const QVector<FoundClip> clips = detected(*jobs[0]);
    QVERIFY(!clips.isEmpty());
    QVERIFY(!(clips == everywhere));
    QVERIFY(clips == scanned(video, {"--mask", maskFile}));
}

QTEST_MAIN(TestRegionClips)
#include "test_regionclips.moc"
