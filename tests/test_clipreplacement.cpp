// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "faults.h"
#include "footage.h"
#include "motiondock.h"
#include "process.h"
#include "windowtest.h"

#include <QDoubleSpinBox>

namespace {

/// The times of a job's clips with these options, as another program has found them.
const QStringList ofMinimum5 = {"1.2-9.2",   "3.3-10.4",  "4.5-11.6",  "10.8-18.9",
                                "13.0-20.1", "14.2-25.7", "19.8-26.9", "21.0-28.2"};
const QStringList ofMinimum2 = {"2.7-9.2", "12.3-18.9", "18.8-25.7"};

} // namespace

class TestClipReplacement : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeRecordings(); }
    void init();
    void cleanup() { close(); }

    void clipsAreReplaced();
    void picturesAreThoseOfASearch();
    void undoListsWhatWasThere();
    void sameTimesStay();
    void whatIsExportedStays();
    void whatIsExportedStaysAfterUndo();
    void numbersAreNeverUsedAgain();
    void forAll();
    void whatIsLookedAtStaysInView();
    void progressAndEndAreTold();
    void searchedAgain();
    void restIsSearchedAfterwards();
    void runningJobsAreLeftAlone();
    void optionsAreKept();
    void nothingIsExportedByItself();
    void listMayBecomeEmpty();
    void removedClipsDoNotComeBackTwice();
    void anotherUseWhilePicturesAreLookedFor();
    void undoWhilePicturesAreLookedFor();
    void twentyUsesCanBeUndone();
    void discardedClipsStartNoEncoder();
    void recordingThatIsGone();
    void recordingThatWasCutOff();
    void noThread();
    void quittingMeanwhile();

private:
    Video* newJob(const QString& fileName = QString());
    Video* searched(Video* job, int clips);
    void showDock(Video* job);
    void use(double minimum);
    void useAndWait(double minimum, const QStringList& expected);
    QStringList times();
    QList<int> numbers();
    QList<Clip*> clips();
    MotionDock& dock() { return driver->part<MotionDock>("dockMotion"); }
    QString message() { return driver->part<QStatusBar>("statusBar").currentMessage(); }
    QPushButton& undo() { return driver->part<QPushButton>("pushButtonUndo"); }
};

void TestClipReplacement::init() {
    open();
    QSettings().clear();
}

Video* TestClipReplacement::newJob(const QString& fileName) {
    const QString gate = recordingsDirectory() + "/gate.avi";
    return new Video(fileName.isEmpty() ? gate : fileName, folder->path(), 1.0, 1.0, 5.0, 0, false,
                     nullptr, nullptr, false, QDateTime());
}

/// Until so many clips are listed in all.
Video* TestClipReplacement::searched(Video* job, int clips) {
    QObject hearing; // hears no later end of the same job
    bool isReady = false;
    connect(job, &Video::resultReady, &hearing, [&isReady] { isReady = true; });
    driver->accept(job);
    [&] { QTRY_VERIFY_WITH_TIMEOUT(isReady, longMilliseconds); }();
    [&] { QTRY_COMPARE(driver->list().count(), clips); }();
    return job;
}

void TestClipReplacement::showDock(Video* job) {
    dock().show();
    dock().showJob(job);
    [&] {
        QTRY_VERIFY_WITH_TIMEOUT(driver->part<QPushButton>("pushButtonUse").isEnabled(),
                                 longMilliseconds);
    }();
}

/// With this minimum in place of the job's.
void TestClipReplacement::use(double minimum) {
    driver->part<QDoubleSpinBox>("spinBoxMinimum").setValue(minimum);
    driver->click("pushButtonUse");
}

void TestClipReplacement::useAndWait(double minimum, const QStringList& expected) {
    use(minimum);
    [&] { QTRY_COMPARE_WITH_TIMEOUT(times(), expected, longMilliseconds); }();
}

QStringList TestClipReplacement::times() {
    QStringList texts;
    for (const Clip* clip : clips())
        texts += QString("%1-%2").arg(clip->start, 0, 'f', 1).arg(clip->end, 0, 'f', 1);
    return texts;
}

QList<int> TestClipReplacement::numbers() {
    QList<int> numbers;
    for (const Clip* clip : clips())
        numbers += clip->index;
    return numbers;
}

QList<Clip*> TestClipReplacement::clips() {
    QList<Clip*> clips;
    for (int row = 0; row < driver->list().count(); ++row)
        clips += &driver->clip(row);
    return clips;
}

void TestClipReplacement::clipsAreReplaced() {
    Video* job = searched(newJob(), 8);
    QCOMPARE(times(), ofMinimum5);
    showDock(job);
    useAndWait(2.0, ofMinimum2);
    QCOMPARE(numbers(), QList<int>({8, 9, 10}));
    QCOMPARE(job->nextClipNumber, 11);
    for (const Clip* clip : clips()) {
        QCOMPARE(clip->status, int(Clip::NotExported));
        QCOMPARE(clip->video, job);
    }
    QTRY_VERIFY(driver->part<QLabel>("labelWouldBe").text().startsWith("3 clips"));
    QTRY_VERIFY(driver->part<QLabel>("labelWouldBe").text().endsWith("now 3"));
}

/// A search with the same options makes its pictures on another road.
void TestClipReplacement::picturesAreThoseOfASearch() {
    Video* job = newJob();
    job->minimum = 2.0;
    searched(job, 3);
    QList<QImage> expected;
    for (const Clip* clip : clips())
        expected += clip->snapshot;
    driver->trigger("actionRemoveAll");
    showDock(searched(newJob(), 8));
    useAndWait(2.0, ofMinimum2);
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!clips()[i]->snapshot.isNull());
        QCOMPARE(clips()[i]->snapshot, expected[i]);
    }
}

void TestClipReplacement::undoListsWhatWasThere() {
    showDock(searched(newJob(), 8));
    const QList<Clip*> before = clips();
    QVERIFY(!undo().isEnabled());
    useAndWait(2.0, ofMinimum2);
    QVERIFY(undo().isEnabled());
    undo().click();
    QCOMPARE(clips(), before); // the very same
    QVERIFY(!undo().isEnabled());
    QCOMPARE(driver->part<QDoubleSpinBox>("spinBoxMinimum").value(), 5.0);
}

void TestClipReplacement::sameTimesStay() {
    showDock(searched(newJob(), 8));
    const QList<Clip*> before = clips();
    useAndWait(5.0, ofMinimum5);
    QTest::qWait(300);
    QCOMPARE(clips(), before);
    driver->clip(2).setSelected(true);
    driver->trigger("actionRemoveSelected");
    useAndWait(5.0, ofMinimum5); // what is missing comes where it belongs
    QCOMPARE(numbers(), QList<int>({0, 1, 8, 3, 4, 5, 6, 7}));
}

void TestClipReplacement::whatIsExportedStays() {
    showDock(searched(newJob(), 8));
    driver->clip(6).exportClip(false);
    QTRY_COMPARE(driver->clip(6).status, int(Clip::Exported));
    encoder->hold();
    driver->clip(3).exportClip(false);
    driver->clip(0).exportClip(false);
    QCOMPARE(driver->clip(3).status, int(Clip::Exporting));
    QCOMPARE(driver->clip(0).status, int(Clip::Queued));
    useAndWait(2.0, {"1.2-9.2", "2.7-9.2", "10.8-18.9", "12.3-18.9", "18.8-25.7", "19.8-26.9"});
    QCOMPARE(numbers(), QList<int>({0, 8, 3, 9, 10, 6}));
    undo().click();
    QCOMPARE(times(), ofMinimum5);
    encoder->release();
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0006.avi", "0003.avi", "0000.avi"}));
}

void TestClipReplacement::whatIsExportedStaysAfterUndo() {
    showDock(searched(newJob(), 8));
    useAndWait(2.0, ofMinimum2);
    encoder->hold();
    driver->clip(0).exportClip(false);
    driver->clip(1).exportClip(false);
    undo().click();
    QCOMPARE(numbers(), QList<int>({0, 8, 1, 2, 3, 9, 4, 5, 6, 7}));
    encoder->release();
    QTRY_COMPARE(encoder->outputs(), QStringList({"0008.avi", "0009.avi"}));
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
}

void TestClipReplacement::numbersAreNeverUsedAgain() {
    showDock(searched(newJob(), 8));
    useAndWait(2.0, ofMinimum2);
    undo().click();
    useAndWait(2.0, ofMinimum2);
    QCOMPARE(numbers(), QList<int>({11, 12, 13}));
    driver->trigger("actionRemoveAll");
    useAndWait(2.0, ofMinimum2);
    QCOMPARE(numbers(), QList<int>({14, 15, 16}));
}

void TestClipReplacement::forAll() {
    searched(newJob(), 8);
    Video* second = searched(newJob(), 16);
    Video* broken = newJob(folder->filePath("missing.avi"));
    driver->accept(broken);
    QTRY_COMPARE(int(broken->state), int(Video::Failed));
    showDock(second);
    const QList<Clip*> before = clips();
    driver->part<QDoubleSpinBox>("spinBoxMinimum").setValue(2.0);
    driver->click("pushButtonUseForAll");
    QTRY_COMPARE_WITH_TIMEOUT(times(), ofMinimum2 + ofMinimum2, longMilliseconds);
    QVERIFY(clips()[2]->video != second);
    QCOMPARE(clips()[3]->video, second);
    undo().click(); // both at once
    QCOMPARE(clips(), before);
    QVERIFY(!undo().isEnabled());
}

/// The clips of the first recording leave from above what is looked at.
void TestClipReplacement::whatIsLookedAtStaysInView() {
    Video* first = searched(newJob(), 8);
    searched(newJob(), 16);
    showDock(first);
    Video* third = searched(newJob(), 24);
    Clip* looked = clips()[16];
    QCOMPARE(looked->video, third);
    driver->list().scrollToItem(looked, QAbstractItemView::PositionAtTop);
    const auto top = [&] { return driver->list().visualItemRect(looked).top(); };
    const int before = top();
    use(2.0);
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 19, longMilliseconds);
    QCOMPARE(clips()[11], looked);
    QCOMPARE(top(), before);
    undo().click();
    QTRY_COMPARE(driver->list().count(), 24);
    QCOMPARE(top(), before);
}

void TestClipReplacement::progressAndEndAreTold() {
    const QString copy = folder->filePath("gone.avi");
    QVERIFY(QFile::copy(recordingsDirectory() + "/gate.avi", copy));
    searched(newJob(), 8);
    searched(newJob(copy), 16);
    showDock(searched(newJob(), 24));
    QVERIFY(QFile::remove(copy));
    QStringList told;
    connect(&driver->part<QStatusBar>("statusBar"), &QStatusBar::messageChanged, this,
            [&told](const QString& text) { told += text; });
    driver->part<QDoubleSpinBox>("spinBoxMinimum").setValue(2.0);
    driver->click("pushButtonUseForAll");
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 3 + 8 + 3, longMilliseconds);
    QTRY_COMPARE(message(), QString("The clips of 2 recordings are replaced, those of 1 are not; "
                                    "the last one: gone.avi: it is gone, and its clips stay as "
                                    "they are"));
    for (const char* step : {"1 of 3", "2 of 3", "3 of 3"})
        QVERIFY(told.contains(QString("Replacing clips: recording ") + step));
    driver->part<QStatusBar>("statusBar").clearMessage();
    use(3.0); // of one recording its clips tell enough
    QTRY_VERIFY_WITH_TIMEOUT(!times().endsWith(ofMinimum2.last()), longMilliseconds);
    QCOMPARE(message(), QString());
}

/// Both jobs write into one folder, and no file may be overwritten.
void TestClipReplacement::searchedAgain() {
    Video* first = searched(newJob(), 8);
    JobRecord again = first->record();
    again.state = Video::Waiting;
    auto* second = new Video(again);
    searched(second, 8);
    QCOMPARE(numbers(), QList<int>({8, 9, 10, 11, 12, 13, 14, 15}));
    showDock(second);
    driver->part<QDoubleSpinBox>("spinBoxMinimum").setValue(2.0);
    driver->click("pushButtonUseForAll");
    QTRY_COMPARE_WITH_TIMEOUT(times(), ofMinimum2, longMilliseconds);
    QTest::qWait(300); // no clips of the first one come
    QCOMPARE(numbers(), QList<int>({16, 17, 18}));
    showDock(first);
    second->state = Video::Running; // as if it were searched once more
    use(2.0);
    QTRY_COMPARE(message(),
                 QString("gate.avi: it is being searched again, and its clips stay as they are"));
    second->state = Video::Finished;
    use(2.0);
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 6, longMilliseconds);
    QCOMPARE(first->nextClipNumber, 22);
}

void TestClipReplacement::restIsSearchedAfterwards() {
    Video* cancelled = searched(newJob(), 8);
    cancelled->state = Video::CancelRequested; // as if that had come before its end
    showDock(cancelled);
    useAndWait(2.0, ofMinimum2);
    QMetaObject::invokeMethod(driver->window.findChild<QDockWidget*>("dockRecordings"),
                              "restAsked");
    Video* again = dock().shownJob();
    QVERIFY(again && again != cancelled);
    QVERIFY(!undo().isEnabled()); // the clips that it lists would be those of the other job
    QTRY_COMPARE_WITH_TIMEOUT(int(again->state), int(Video::Finished), longMilliseconds);
    QTest::qWait(300); // what it has announced
    QCOMPARE(times(), ofMinimum2);
    QCOMPARE(numbers(), QList<int>({8, 9, 10}));
    for (const Clip* clip : clips())
        QCOMPARE(clip->video, again);
    QTRY_VERIFY(driver->part<QPushButton>("pushButtonUse").isEnabled());
    useAndWait(5.0, ofMinimum5);
    QVERIFY(undo().isEnabled());
}

void TestClipReplacement::runningJobsAreLeftAlone() {
    Video* first = searched(newJob(), 8);
    Video* stalled = makeJob(longRecording);
    acceptStalled(stalled);
    showDock(first);
    driver->part<QDoubleSpinBox>("spinBoxMinimum").setValue(2.0);
    driver->click("pushButtonUseForAll");
    QTRY_COMPARE_WITH_TIMEOUT(times(), ofMinimum2, longMilliseconds);
    QVERIFY(!stalled->search.deciding);
    driver->click("pushButtonCancel");
    gate.unlock();
    QTRY_COMPARE(driver->list().count(), 4); // its own clip
    QCOMPARE(driver->clip(3).video, stalled);
    QCOMPARE(driver->clip(3).index, 0);
}

void TestClipReplacement::optionsAreKept() {
    Video* job = searched(newJob(), 8);
    showDock(job);
    useAndWait(2.0, ofMinimum2);
    QVERIFY(job->search.deciding.has_value());
    QCOMPARE(job->search.deciding->segmentation.minimum, 2.0);
    dock().showJob(searched(newJob(), 11));
    QCOMPARE(driver->part<QDoubleSpinBox>("spinBoxMinimum").value(), 5.0);
    dock().showJob(job);
    QCOMPARE(driver->part<QDoubleSpinBox>("spinBoxMinimum").value(), 2.0);
    undo().click();
    QVERIFY(!job->search.deciding.has_value());
}

/// Who tunes tries, and what is exported stays for ever.
void TestClipReplacement::nothingIsExportedByItself() {
    Video* job = searched(newJob(), 8);
    showDock(job);
    job->autoExport = true;
    useAndWait(2.0, ofMinimum2);
    QTest::qWait(200);
    QCOMPARE(encoder->outputs(), QStringList());
    QVERIFY(job->autoExport);
}

void TestClipReplacement::listMayBecomeEmpty() {
    showDock(searched(newJob(), 8));
    const QList<Clip*> before = clips();
    driver->part<QDoubleSpinBox>("spinBoxThreshold").setValue(10.0);
    useAndWait(60.0, {});
    QVERIFY(!driver->action("actionRemoveAll").isEnabled());
    undo().click();
    QCOMPARE(clips(), before);
    QVERIFY(driver->action("actionRemoveAll").isEnabled());
}

void TestClipReplacement::removedClipsDoNotComeBackTwice() {
    showDock(searched(newJob(), 8));
    useAndWait(2.0, ofMinimum2);
    driver->clip(1).setSelected(true);
    driver->trigger("actionRemoveSelected");
    undo().click();
    QCOMPARE(times(), ofMinimum5);
}

void TestClipReplacement::anotherUseWhilePicturesAreLookedFor() {
    showDock(searched(newJob(), 8));
    const QList<Clip*> before = clips();
    use(2.0);
    QTRY_VERIFY(driver->list().count() < 8);
    useAndWait(5.0, ofMinimum5);
    use(2.0);
    useAndWait(2.0, ofMinimum2);
    while (undo().isEnabled())
        undo().click();
    QCOMPARE(clips(), before);
}

void TestClipReplacement::undoWhilePicturesAreLookedFor() {
    showDock(searched(newJob(), 8));
    const QList<Clip*> before = clips();
    use(2.0);
    QTRY_VERIFY(driver->list().count() < 8);
    undo().click();
    QCOMPARE(clips(), before);
    QTest::qWait(500);
    QCOMPARE(clips(), before); // nothing comes late
}

void TestClipReplacement::twentyUsesCanBeUndone() {
    showDock(searched(newJob(), 8));
    for (int i = 0; i < 12; ++i) {
        useAndWait(2.0, ofMinimum2);
        useAndWait(5.0, ofMinimum5);
    }
    int undone = 0;
    for (; undo().isEnabled(); ++undone)
        undo().click();
    QCOMPARE(undone, 20);
    QCOMPARE(times(), ofMinimum5);
}

/// The end of any clip lets the export go on with the next one, whether or not one runs.
void TestClipReplacement::discardedClipsStartNoEncoder() {
    showDock(searched(newJob(), 8));
    useAndWait(2.0, ofMinimum2);
    undo().click();
    encoder->hold();
    driver->clip(0).exportClip(false);
    driver->clip(1).exportClip(false);
    QTest::qWait(1500);
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi"}));
    encoder->release();
    QTRY_COMPARE(encoder->outputs(), QStringList({"0000.avi", "0001.avi"}));
}

void TestClipReplacement::recordingThatIsGone() {
    const QString copy = folder->filePath("gone.avi");
    QVERIFY(QFile::copy(recordingsDirectory() + "/gate.avi", copy));
    Video* job = searched(newJob(copy), 8);
    showDock(job);
    const QList<Clip*> before = clips();
    QVERIFY(QFile::remove(copy));
    use(2.0);
    QTRY_COMPARE(message(), QString("gone.avi: it is gone, and its clips stay as they are"));
    QCOMPARE(clips(), before);
    QCOMPARE(job->nextClipNumber, 8);
    QTRY_VERIFY(!undo().isEnabled());
}

void TestClipReplacement::recordingThatWasCutOff() {
    const QString copy = folder->filePath("cut.avi");
    QVERIFY(QFile::copy(recordingsDirectory() + "/gate.avi", copy));
    showDock(searched(newJob(copy), 8));
    const QList<Clip*> before = clips();
    QVERIFY(QFile::resize(copy, 1000));
    use(2.0);
    QTRY_COMPARE(message(), QString("cut.avi: it has changed, and its clips stay as they are"));
    QCOMPARE(clips(), before);
}

void TestClipReplacement::noThread() {
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        const ProcessResult result =
            runProgramIn(faults::noThreadsWhile(folder->filePath("no-threads")),
                         QCoreApplication::applicationFilePath(), {"noThread"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    showDock(searched(newJob(), 8));
    const QList<Clip*> before = clips();
    driver->part<QDoubleSpinBox>("spinBoxMinimum").setValue(2.0);
    // From here on no thread can be had while the file is there.
    QFile noThreads(qEnvironmentVariable("FAILING_FILE"));
    QVERIFY(noThreads.open(QIODevice::WriteOnly));
    driver->click("pushButtonUse");
    QTRY_COMPARE(message(),
                 QString("gate.avi: there is no thread or no memory to replace its clips"));
    QCOMPARE(clips(), before);
    QVERIFY(noThreads.remove());
    useAndWait(2.0, ofMinimum2);
}

void TestClipReplacement::quittingMeanwhile() {
    for (int wait = 0; wait < 200; wait += 20) {
        showDock(searched(newJob(), 8));
        use(2.0);
        QTest::qWait(wait);
        QElapsedTimer timer;
        timer.start();
        driver.reset();
        QVERIFY2(timer.elapsed() < 1500, qPrintable(QString::number(timer.elapsed())));
        driver = std::make_unique<MainWindowDriver>();
        driver->window.show();
    }
}

QTEST_MAIN(TestClipReplacement)
#include "test_clipreplacement.moc"
