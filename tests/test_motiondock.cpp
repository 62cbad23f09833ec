// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motiondock.h"

#include "celldefaults.h"
#include "detectionqueue.h"
#include "faults.h"
#include "footage.h"
#include "motionstripwidget.h"
#include "process.h"
#include "recordingmotion.h"
#include "video.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(DecidingOptions)

namespace {

constexpr int longMilliseconds = 60000;

QString recordingNamed(const QString& name) {
    return recordingsDirectory() + '/' + name;
}

QStringList textsOf(const QVector<DetectedClip>& clips) {
    QStringList texts;
    for (const DetectedClip& clip : clips)
        texts += QStringLiteral("%1-%2 %3")
                     .arg(clip.start, 0, 'f', 6)
                     .arg(clip.end, 0, 'f', 6)
                     .arg(clip.snapshotTime, 0, 'f', 6);
    return texts;
}

} // namespace

class TestMotionDock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void defaultsFindWhatIsListed_data();
    void defaultsFindWhatIsListed();
    void otherOptionsFindWhatIsTrue_data();
    void otherOptionsFindWhatIsTrue();
    void joinsClips();
    void saysWhatWouldBe();
    void everyControlCounts();
    void detectorsKeepTheirThresholds();
    void whatIsNotTouchedStaysExact();
    void optionsOfTheJobAreShown();
    void showsWhatIsMeasuredAtTheMoment();
    void nameIsShownAsItIs();
    void doesNothingWhileHidden();
    void anotherJobWhileOneIsDecided();
    void chosenAsItsSearchEnds();
    void recordingWithoutMaps();
    void recordingThatCouldNotBeRead();
    void thresholdOfTheStrip();
    void returnStaysInTheDock();
    void undoIsAsked();
    void noThread();

private:
    Video* newJob(const QString& fileName, double minimum = 5.0) const;
    Video* searched(Video* job);
    QString labelText() const { return part<QLabel>("labelWouldBe").text(); }
    void chooseDetector(int index);

    template<class T>
    T& part(const char* name) const {
        return *window->findChild<T*>(name);
    }

    QTemporaryDir folder;
    QVector<DetectedClip> announced; ///< by the last job that was searched
    std::unique_ptr<DetectionQueue> queue;
    std::unique_ptr<QMainWindow> window;
    MotionDock* dock = nullptr;
};

void TestMotionDock::initTestCase() {
    qRegisterMetaType<DecidingOptions>();
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
}

void TestMotionDock::init() {
    QSettings().clear();
    announced.clear();
    queue = std::make_unique<DetectionQueue>();
    window = std::make_unique<QMainWindow>();
    dock = new MotionDock(*queue, window.get());
    window->addDockWidget(Qt::BottomDockWidgetArea, dock);
    window->show();
}

void TestMotionDock::cleanup() {
    window.reset();
    queue.reset();
}

Video* TestMotionDock::newJob(const QString& fileName, double minimum) const {
    return new Video(fileName, folder.path(), 1.0, 1.0, minimum, 0, false, nullptr, nullptr, false,
                     QDateTime());
}

Video* TestMotionDock::searched(Video* job) {
    connect(job, &Video::newClip, this,
            [this](int index, const QImage&, double start, double end, double snapshotTime) {
                announced.append({index, {}, start, end, snapshotTime});
            });
    QObject hearing; // hears no later end of the same job
    bool isReady = false;
    connect(job, &Video::resultReady, &hearing, [&isReady] { isReady = true; });
    queue->add({job});
    [&] { QTRY_VERIFY_WITH_TIMEOUT(isReady, longMilliseconds); }();
    [&] { QTRY_VERIFY(queue->isOver(*job)); }();
    return job;
}

void TestMotionDock::chooseDetector(int index) {
    auto& box = part<QComboBox>("comboBoxDetector");
    box.setCurrentIndex(index);
    Q_EMIT box.activated(index);
}

void TestMotionDock::defaultsFindWhatIsListed_data() {
    QTest::addColumn<QString>("recording");
    QTest::addColumn<bool>("areCells");
    for (const char* recording : {"garden.mp4", "gate.avi", "night.mkv"}) {
        QTest::addRow("%s by the mean", recording) << recording << false;
        QTest::addRow("%s by cells", recording) << recording << true;
    }
}

/// One of the recordings does not begin at 0, and the start of its first clip is cut off there.
void TestMotionDock::defaultsFindWhatIsListed() {
    QFETCH(QString, recording);
    QFETCH(bool, areCells);
    Video* job = newJob(recordingNamed(recording));
    if (areCells)
        job->search.deciding = {
            Detector::Cells, {1.0, 1.0, cellsMinimum, {float(cellsThreshold)}}, {}, std::nullopt};
    searched(job);
    QVERIFY(!announced.isEmpty());
    const auto found = RecordingMotion(*job).clips(decidingOptionsOf(*job));
    QVERIFY(found.has_value());
    QCOMPARE(textsOf(*found), textsOf(announced));
}

void TestMotionDock::otherOptionsFindWhatIsTrue_data() {
    QTest::addColumn<QString>("recording");
    QTest::addColumn<QString>("set");
    QTest::addColumn<DecidingOptions>("options");
    const auto mean = [](double before, double after, double minimum, float threshold) {
        DecidingOptions options;
        options.segmentation = {before, after, minimum, {threshold}};
        return options;
    };
    for (const QString recording : {"garden.mp4", "gate.avi", "night.mkv"}) {
        const auto row = [&recording](const char* set) -> QTestData& {
            return QTest::addRow("%s %s", qPrintable(recording), set) << recording << QString(set);
        };
        row("short") << mean(1.0, 1.0, 2.0, 0.5F);
        row("decimals") << mean(2.25, 1.6, 3.3, 0.5F);
        row("zero") << mean(1.0, 1.0, 5.0, 0.0F);
    }
}

/// Against lists that another program has found with those options.
void TestMotionDock::otherOptionsFindWhatIsTrue() {
    QFETCH(QString, recording);
    QFETCH(QString, set);
    QFETCH(DecidingOptions, options);
    QFile list(recordingNamed("expected/" + recording + '.' + set + ".jsonl"));
    QVERIFY(list.open(QIODevice::ReadOnly));
    QVector<DetectedClip> expected;
    while (!list.atEnd()) {
        const QJsonObject clip = QJsonDocument::fromJson(list.readLine()).object();
        if (clip.contains("start"))
            expected.append({0,
                             {},
                             clip["start"].toDouble(),
                             clip["end"].toDouble(),
                             clip["snapshotTime"].toDouble()});
    }
    const Video* job = searched(newJob(recordingNamed(recording)));
    QCOMPARE(textsOf(*RecordingMotion(*job).clips(options)), textsOf(expected));
}

void TestMotionDock::joinsClips() {
    const Video* job = searched(newJob(recordingNamed("gate.avi")));
    DecidingOptions options = decidingOptionsOf(*job);
    QVERIFY(announced.size() > 1); // and all of them overlap or touch
    options.joiningGap = 1.0;
    const auto joined = RecordingMotion(*job).clips(options);
    QCOMPARE(joined->size(), 1);
    QCOMPARE(joined->first().start, announced.first().start);
    QCOMPARE(joined->first().end, announced.last().end);
}

void TestMotionDock::saysWhatWouldBe() {
    Video* job = searched(newJob(recordingNamed("gate.avi")));
    dock->showJob(job);
    QTRY_COMPARE(labelText(), QString("8 clips, 0:01:03 in all; now 0"));
    dock->setListed({{0, 1.2, 9.2}, {1, 3.3, 10.4}});
    QCOMPARE(labelText(), QString("8 clips, 0:01:03 in all; now 2"));
    part<QDoubleSpinBox>("spinBoxMerge").setValue(1.0);
    QTRY_COMPARE(labelText(), QString("1 clip, 0:00:27 long; now 2"));
    QVERIFY(part<QPushButton>("pushButtonUse").isEnabled());
    QVERIFY(dock->windowTitle().contains("gate.avi"));
    QCOMPARE(dock->toggleViewAction()->text(), QString("Motion"));
    const QString description = part<QWidget>("motionStrip").accessibleDescription();
    QVERIFY2(description.startsWith("gate.avi: 0:00:30 long"), qPrintable(description));
    QVERIFY2(description.endsWith("2 clips"), qPrintable(description));
}

void TestMotionDock::everyControlCounts() {
    dock->showJob(searched(newJob(recordingNamed("gate.avi"))));
    QSignalSpy asked(dock, SIGNAL(useAsked(DecidingOptions, bool)));
    part<QDoubleSpinBox>("spinBoxBefore").setValue(2.0);
    part<QDoubleSpinBox>("spinBoxAfter").setValue(3.0);
    chooseDetector(1);
    part<QDoubleSpinBox>("spinBoxThreshold").setValue(1.5);
    part<QDoubleSpinBox>("spinBoxMinimum").setValue(4.0);
    part<QDoubleSpinBox>("spinBoxMerge").setValue(0.0);
    part<QSpinBox>("spinBoxSensitivity").setValue(4);
    part<QCheckBox>("checkBoxRestless").setChecked(true);
    QTRY_VERIFY_WITH_TIMEOUT(labelText().contains("now"), longMilliseconds);
    part<QPushButton>("pushButtonUse").click();
    part<QPushButton>("pushButtonUseForAll").click();
    QCOMPARE(asked.count(), 2);
    QCOMPARE(asked[0][1].toBool(), false);
    QCOMPARE(asked[1][1].toBool(), true);
    const auto options = asked[0][0].value<DecidingOptions>();
    QCOMPARE(options.detector, Detector::Cells);
    QCOMPARE(options.segmentation.prerecord, 2.0);
    QCOMPARE(options.segmentation.postrecord, 3.0);
    QCOMPARE(options.segmentation.minimum, 4.0);
    QCOMPARE(options.segmentation.motionThreshold.value, 1.5F);
    QCOMPARE(options.joiningGap.value_or(-1.0), 0.0);
    QCOMPARE(options.cells.step, stepOf(4));
    QVERIFY(options.cells.isRestlessIgnored);
}

void TestMotionDock::detectorsKeepTheirThresholds() {
    dock->showJob(searched(newJob(recordingNamed("gate.avi"))));
    auto& threshold = part<QDoubleSpinBox>("spinBoxThreshold");
    auto& minimum = part<QDoubleSpinBox>("spinBoxMinimum");
    QCOMPARE(threshold.value(), 0.5);
    QCOMPARE(threshold.maximum(), 10.0);
    QVERIFY(!part<QCheckBox>("checkBoxRestless").isEnabled());
    threshold.setValue(0.8);
    chooseDetector(1);
    QCOMPARE(threshold.value(), 0.7);
    QCOMPARE(threshold.maximum(), 100.0);
    QCOMPARE(minimum.value(), 2.0);
    QVERIFY(part<QCheckBox>("checkBoxRestless").isEnabled());
    threshold.setValue(12.5);
    chooseDetector(0);
    QCOMPARE(threshold.value(), 0.8);
    QCOMPARE(minimum.value(), 5.0);
    chooseDetector(1);
    QCOMPARE(threshold.value(), 12.5);
}

void TestMotionDock::whatIsNotTouchedStaysExact() {
    QSettings().setValue("threshold_motion", 0.1234);
    dock->showJob(searched(newJob(recordingNamed("gate.avi"), 2.3456)));
    QTRY_VERIFY(part<QPushButton>("pushButtonUse").isEnabled());
    QSignalSpy asked(dock, SIGNAL(useAsked(DecidingOptions, bool)));
    part<QDoubleSpinBox>("spinBoxBefore").setValue(2.0);
    part<QPushButton>("pushButtonUse").click();
    const auto options = asked[0][0].value<DecidingOptions>();
    QCOMPARE(options.segmentation.motionThreshold.value, 0.1234F);
    QCOMPARE(options.segmentation.minimum, 2.3456);
}

void TestMotionDock::optionsOfTheJobAreShown() {
    Video* job = newJob(recordingNamed("gate.avi"));
    job->search.deciding = {Detector::Cells, {3.0, 4.0, 2.5, {1.25F}}, {1, true}, 6.0};
    dock->showJob(searched(job));
    QCOMPARE(part<QComboBox>("comboBoxDetector").currentIndex(), 1);
    QCOMPARE(part<QDoubleSpinBox>("spinBoxThreshold").value(), 1.25);
    QCOMPARE(part<QDoubleSpinBox>("spinBoxMinimum").value(), 2.5);
    QCOMPARE(part<QDoubleSpinBox>("spinBoxBefore").value(), 3.0);
    QCOMPARE(part<QDoubleSpinBox>("spinBoxAfter").value(), 4.0);
    QCOMPARE(part<QDoubleSpinBox>("spinBoxMerge").value(), 6.0);
    QCOMPARE(part<QSpinBox>("spinBoxSensitivity").value(), 4);
    QVERIFY(part<QCheckBox>("checkBoxRestless").isChecked());
}

void TestMotionDock::showsWhatIsMeasuredAtTheMoment() {
    Video* first = searched(newJob(recordingNamed("gate.avi")));
    Video* job = searched(newJob(recordingNamed("night.mkv")));
    Q_UNUSED(first);
    job->state = Video::Running; // as if it went on
    dock->showJob(job);
    QCOMPARE(labelText(), QString("Being searched"));
    QVERIFY(!part<QPushButton>("pushButtonUse").isEnabled());
    job->news.tellMeasured({1.0F, 99.25F}, {30.0, 61.0});
    QTRY_COMPARE(part<QWidget>("motionStrip").accessibleDescription(),
                 QString("night.mkv: 0:01:01 long, strongest motion 99.25, 0 clips"));
    job->news.tellMeasured({111.5F}, {62.0});
    QTRY_COMPARE(part<QWidget>("motionStrip").accessibleDescription(),
                 QString("night.mkv: 0:01:02 long, strongest motion 111.50, 0 clips"));
    job->state = Video::Finished;
    Q_EMIT job->resultReady();
    QTRY_VERIFY(labelText().contains("now"));
}

/// An ampersand is no underlined letter.
void TestMotionDock::nameIsShownAsItIs() {
    Video job("yard & gate.avi", folder.path(), 1.0, 1.0, 5.0, 0, false, nullptr, nullptr, false,
              QDateTime());
    dock->showJob(&job);
    QCOMPARE(dock->windowTitle(), QString("Motion: yard && gate.avi"));
    dock->showJob(nullptr);
}

void TestMotionDock::doesNothingWhileHidden() {
    dock->hide();
    dock->showJob(searched(newJob(recordingNamed("gate.avi"))));
    QTest::qWait(200);
    QVERIFY2(!labelText().contains("now"), qPrintable(labelText()));
    dock->show();
    QTRY_VERIFY(labelText().contains("now"));
}

void TestMotionDock::anotherJobWhileOneIsDecided() {
    Video* first = searched(newJob(recordingNamed("gate.avi")));
    Video* second = searched(newJob(recordingNamed("garden.mp4")));
    dock->showJob(first);
    chooseDetector(1); // takes its time
    dock->showJob(second);
    QTRY_VERIFY_WITH_TIMEOUT(labelText().contains("now"), longMilliseconds);
    QVERIFY(part<QWidget>("motionStrip").accessibleDescription().startsWith("garden.mp4"));
    QCOMPARE(part<QComboBox>("comboBoxDetector").currentIndex(), 0);
    dock->showJob(nullptr);
    QCOMPARE(labelText(), QString("Choose a recording or one of its clips"));
}

/// The worker has told of the end before the dock listens to the job, and the queue hears of it
/// afterwards.
void TestMotionDock::chosenAsItsSearchEnds() {
    Video* job = newJob(recordingNamed("gate.avi"));
    queue->add({job});
    QDeadlineTimer deadline(longMilliseconds);
    while (!job->hasEnded() && !deadline.hasExpired())
        QThread::msleep(10);
    QVERIFY(job->hasEnded());
    QThread::msleep(500); // its last signal comes behind its state
    dock->showJob(job);
    QCOMPARE(labelText(), QString("Being searched"));
    QTRY_VERIFY_WITH_TIMEOUT(labelText().contains("now"), longMilliseconds);
    QVERIFY(part<QPushButton>("pushButtonUse").isEnabled());
}

/// The mean's values are in memory, whatever becomes of the recording.
void TestMotionDock::recordingWithoutMaps() {
    const QString copy = folder.filePath("gone.avi");
    QVERIFY(QFile::copy(recordingNamed("gate.avi"), copy));
    Video* job = searched(newJob(copy));
    QVERIFY(QFile::remove(copy));
    dock->showJob(job);
    QTRY_COMPARE(labelText(), QString("8 clips, 0:01:03 in all; now 0"));
    chooseDetector(1);
    QTRY_COMPARE(labelText(), QString("No maps of changed cells are kept of this recording"));
    QVERIFY(!part<QPushButton>("pushButtonUse").isEnabled());
    chooseDetector(0);
    QTRY_COMPARE(labelText(), QString("8 clips, 0:01:03 in all; now 0"));
    QVERIFY(part<QPushButton>("pushButtonUse").isEnabled());
}

void TestMotionDock::recordingThatCouldNotBeRead() {
    dock->showJob(searched(newJob(folder.filePath("missing.avi"))));
    QTRY_COMPARE(labelText(), QString("Nothing was measured of this recording"));
    QVERIFY(!part<QPushButton>("pushButtonUse").isEnabled());
}

void TestMotionDock::thresholdOfTheStrip() {
    dock->showJob(searched(newJob(recordingNamed("gate.avi"))));
    QTRY_VERIFY(labelText().contains("now"));
    QTest::keyClick(&part<QWidget>("motionStrip"), Qt::Key_Up);
    QCOMPARE(part<QDoubleSpinBox>("spinBoxThreshold").value(), 0.6);
    QTest::keyClick(&part<QWidget>("motionStrip"), Qt::Key_Up);
    QCOMPARE(part<QDoubleSpinBox>("spinBoxThreshold").value(), 0.7);
}

/// Outside it opens clips.
void TestMotionDock::returnStaysInTheDock() {
    QAction open(window.get());
    open.setShortcut(Qt::Key_Return);
    window->addAction(&open);
    QSignalSpy opened(&open, SIGNAL(triggered()));
    dock->showJob(searched(newJob(recordingNamed("gate.avi"))));
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    auto& minimum = part<QDoubleSpinBox>("spinBoxMinimum");
    minimum.setFocus();
    minimum.selectAll();
    QTest::keyClicks(minimum.findChild<QWidget*>("qt_spinbox_lineedit"), "3");
    QTest::keyClick(&minimum, Qt::Key_Return);
    QCOMPARE(minimum.value(), 3.0);
    QCOMPARE(opened.count(), 0);
}

void TestMotionDock::undoIsAsked() {
    QSignalSpy asked(dock, SIGNAL(undoAsked()));
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    auto& strip = part<QWidget>("motionStrip");
    strip.setFocus();
    QTest::keyClick(&strip, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(asked.count(), 0); // nothing to take back
    dock->setUndoable(true);
    QTest::keyClick(&strip, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(asked.count(), 1);
    part<QPushButton>("pushButtonUndo").click();
    QCOMPARE(asked.count(), 2);
}

void TestMotionDock::noThread() {
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        const ProcessResult result =
            runProgramIn(faults::noThreadsWhile(folder.filePath("no-threads")),
                         QCoreApplication::applicationFilePath(), {"noThread"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    Video* job = searched(newJob(recordingNamed("gate.avi")));
    // From here on no thread can be had while the file is there.
    QFile noThreads(qEnvironmentVariable("FAILING_FILE"));
    QVERIFY(noThreads.open(QIODevice::WriteOnly));
    dock->showJob(job);
    QTRY_COMPARE(labelText(),
                 QString("Cannot be worked out now: there is no thread or no memory for it"));
    QVERIFY(noThreads.remove());
    part<QDoubleSpinBox>("spinBoxMinimum").setValue(2.0);
    QTRY_VERIFY(labelText().contains("now 0"));
}

QTEST_MAIN(TestMotionDock)
#include "test_motiondock.moc"
