// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "emptylist.h"
#include "endedjobs.h"
#include "files.h"
#include "process.h"
#include "recordingsdock.h"
#include "windowtest.h"

#include <QDockWidget>
#include <QMessageBox>
#include <QTableView>
#include <QToolButton>

#include <csignal>
#include <sys/resource.h>

/// What goes between the recordings' dock, the list of clips and the queue.
class TestRecordingsControl : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeRecordings(); }
    void init();
    void cleanup() { close(); }

    void clipChoosesItsRecording();
    void recordingScrollsToItsClips();
    void returnChoosesTheFirstClip();
    void onlyOneRecordingIsListed();
    void hiddenClipsAreNotRemovedUnseen();
    void removeAllRemovesWhatIsHidden();
    void clipsOfARecordingAreRemoved();
    void removalBesideAnExportStartsNoOther();
    void searchedAgainNumbersGoOn();
    void exportedClipsOutliveTheNextSearch();
    void cancelledSearchTakesNothingAway();
    void restLeavesWhatWasSearchedAgain();
    void whatSetupDropsHasARow();
    void emptyListSaysWhy_data();
    void emptyListSaysWhy();
    void emptyListIsSilentWithoutDocks();
    void reportIsThatOfTheScanner();
    void reportOfCells();
    void reportOfKeptValues();
    void reportThatCannotBeWritten();
    void reportIsNotReplacedUnasked();

private:
    RecordingsDock& dock() { return driver->part<RecordingsDock>("dockRecordings"); }
    QStringList numbers();
    void searchAgain(const Video& job);
    QString saveReport();
};

void TestRecordingsControl::init() {
    open();
    dock().show();
}

/// The first lines' ends: "#0".
QStringList TestRecordingsControl::numbers() {
    QStringList numbers;
    for (const QString& caption : driver->captions())
        numbers += caption.section(' ', 0, 0);
    return numbers;
}

void TestRecordingsControl::searchAgain(const Video& job) {
    JobRecord record = job.record();
    record.state = Video::Waiting;
    auto* again = new Video(record);
    QSignalSpy end(again, SIGNAL(resultReady()));
    Q_EMIT dock().searchAsked(again);
    [&] { QTRY_COMPARE_WITH_TIMEOUT(end.size(), 1, longMilliseconds); }();
    QCOMPARE(int(again->state), int(Video::Finished));
}

/// The folder.
QString TestRecordingsControl::saveReport() {
    QDir(folder->path()).mkpath("report");
    [&] { QTRY_VERIFY(driver->part<QPushButton>("pushButtonReport").isEnabled()); }();
    DialogAnswer<QFileDialog> answer([this](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(folder->filePath("report"));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    driver->click("pushButtonReport");
    return folder->filePath("report");
}

void TestRecordingsControl::clipChoosesItsRecording() {
    Video* first = failedJob();
    Video* second = failedJob();
    announceClips(first, 30);
    announceClips(second, 30);
    QTRY_COMPARE(driver->list().count(), 60);
    // The list stays where it is: a click is on what is seen.
    driver->list().scrollToItem(driver->list().item(40), QAbstractItemView::PositionAtTop);
    const QRect before = driver->list().visualItemRect(driver->list().item(40));
    driver->list().setCurrentRow(40);
    QCOMPARE(dock().chosenJob(), second);
    QCOMPARE(driver->list().visualItemRect(driver->list().item(40)), before);
}

void TestRecordingsControl::recordingScrollsToItsClips() {
    Video* first = failedJob();
    Video* second = failedJob();
    announceClips(first, 30);
    announceClips(second, 30);
    QTRY_COMPARE(driver->list().count(), 60);
    driver->list().setCurrentRow(3);
    dock().choose(second);
    const QRect seen = driver->list().viewport()->rect();
    QVERIFY(seen.intersects(driver->list().visualItemRect(driver->list().item(30))));
    QCOMPARE(driver->list().selectedItems(), QList<QListWidgetItem*>{driver->list().item(3)});
    QCOMPARE(dock().chosenJob(), second);
}

void TestRecordingsControl::returnChoosesTheFirstClip() {
    announceClips(failedJob(), 2);
    Video* second = failedJob();
    announceClips(second, 2);
    QTRY_COMPARE(driver->list().count(), 4);
    driver->window.activateWindow();
    dock().choose(second);
    auto& table = driver->part<QTableView>("recordings");
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_Return);
    QCOMPARE(driver->list().selectedItems(), QList<QListWidgetItem*>{driver->list().item(2)});
    QVERIFY(driver->list().hasFocus());
    QCOMPARE(driver->clip(2).status, int(Clip::NotExported)); // the window's Return would open it
}

void TestRecordingsControl::onlyOneRecordingIsListed() {
    Video* first = failedJob();
    Video* second = failedJob();
    announceClips(first, 2);
    announceClips(second, 1);
    QTRY_COMPARE(driver->list().count(), 3);
    auto& bar = driver->part<QWidget>("barShown");
    QVERIFY(!bar.isVisible());
    Q_EMIT dock().onlyThisAsked(first);
    QVERIFY(bar.isVisible());
    QCOMPARE(driver->part<QLabel>("labelShown").text(), QString("2 of 3 clips are listed"));
    QVERIFY(!driver->clip(0).isHidden());
    QVERIFY(driver->clip(2).isHidden());
    Q_EMIT second->newClip(1, QImage(), 20.0, 25.0, 21.0); // while they are hidden
    QTRY_COMPARE(driver->list().count(), 4);
    QVERIFY(driver->clip(3).isHidden());
    QTRY_COMPARE(driver->part<QLabel>("labelShown").text(), QString("2 of 4 clips are listed"));
    driver->click("pushButtonShowAll");
    QVERIFY(!driver->clip(2).isHidden() && !driver->clip(3).isHidden());
    QVERIFY(!bar.isVisible());
}

void TestRecordingsControl::hiddenClipsAreNotRemovedUnseen() {
    Video* first = failedJob();
    Video* second = failedJob();
    announceClips(first, 1);
    announceClips(second, 2);
    QTRY_COMPARE(driver->list().count(), 3);
    driver->list().selectAll();
    QSignalSpy selections(&driver->list(), SIGNAL(itemSelectionChanged()));
    Q_EMIT dock().onlyThisAsked(first);
    QCOMPARE(driver->list().selectedItems().size(), 1);
    QCOMPARE(selections.size(), 1);
    driver->trigger("actionRemoveSelected");
    Q_EMIT dock().onlyThisAsked(nullptr);
    QCOMPARE(driver->list().count(), 2);
    QCOMPARE(driver->clip(0).video.data(), second);
}

void TestRecordingsControl::removeAllRemovesWhatIsHidden() {
    Video* first = failedJob();
    announceClips(first, 3);
    announceClips(failedJob(), 3);
    QTRY_COMPARE(driver->list().count(), 6);
    Q_EMIT dock().onlyThisAsked(first);
    driver->trigger("actionRemoveAll");
    QCOMPARE(driver->list().count(), 0);
    QVERIFY(!driver->action("actionRemoveAll").isEnabled());
}

void TestRecordingsControl::clipsOfARecordingAreRemoved() {
    Video* first = failedJob();
    announceClips(first, 3);
    QTRY_COMPARE(driver->list().count(), 3);
    QVERIFY(driver->action("actionRemoveAll").isEnabled());
    Q_EMIT dock().clipsRemovalAsked(first);
    QCOMPARE(driver->list().count(), 0);
    QVERIFY(!driver->action("actionRemoveAll").isEnabled());
}

/// One that was asked for directly, and so is not in the queue itself.
void TestRecordingsControl::removalBesideAnExportStartsNoOther() {
    Video* removed = failedJob();
    Video* exported = failedJob();
    announceClips(removed, 2);
    announceClips(exported, 2);
    QTRY_COMPARE(driver->list().count(), 4);
    encoder->hold();
    Clip& waiting = driver->clip(3);
    driver->clip(2).exportClip(false);
    driver->clip(0).exportClip(false); // is removed while it waits
    waiting.exportClip(false);
    QTRY_COMPARE(encoder->calls().size(), 1);
    Q_EMIT dock().clipsRemovalAsked(removed);
    QCOMPARE(driver->list().count(), 2);
    QTest::qWait(1500);
    QCOMPARE(encoder->calls().size(), 1);
    QCOMPARE(waiting.status, int(Clip::Queued));
    encoder->release();
    QTRY_COMPARE(waiting.status, int(Clip::Exported));
    QCOMPARE(encoder->calls().size(), 2);
}

void TestRecordingsControl::searchedAgainNumbersGoOn() {
    Video* job = makeJob(shortRecording);
    driver->accept(job);
    QTRY_COMPARE_WITH_TIMEOUT(int(job->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(numbers(), QStringList("#0"));
    const double start = driver->clip(0).start;
    searchAgain(*job);
    QTRY_COMPARE(numbers(), QStringList("#1"));
    QCOMPARE(driver->clip(0).start, start);
    searchAgain(*job); // the first one, which knows nothing of the second
    QTRY_COMPARE(numbers(), QStringList("#2"));
    QCOMPARE(driver->clip(0).video->clipDirectory, job->clipDirectory);
}

void TestRecordingsControl::exportedClipsOutliveTheNextSearch() {
    Video* job = makeJob(shortRecording);
    driver->accept(job);
    QTRY_COMPARE_WITH_TIMEOUT(int(job->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), 1);
    encoder->release();
    driver->clip(0).exportClip(false);
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    const QString file = driver->clip(0).outputPath;
    searchAgain(*job);
    QTRY_COMPARE(numbers(), QStringList({"#0", "#1"}));
    driver->clip(1).exportClip(false);
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    QVERIFY(driver->clip(1).outputPath != file);
    QCOMPARE(QFileInfo(driver->clip(1).outputPath).path(), QFileInfo(file).path());
}

void TestRecordingsControl::cancelledSearchTakesNothingAway() {
    Video* job = makeJob(shortRecording);
    driver->accept(job);
    QTRY_COMPARE_WITH_TIMEOUT(int(job->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), 1);
    JobRecord record = job->record();
    record.state = Video::Waiting;
    record.fileName = longRecording;
    auto* again = new Video(record);
    QSignalSpy end(again, SIGNAL(resultReady()));
    Q_EMIT dock().searchAsked(again);
    QTRY_COMPARE(int(again->state), int(Video::Running));
    driver->click("pushButtonCancel");
    QTRY_COMPARE(end.size(), 1);
    QCOMPARE(driver->clip(0).video.data(), job);
}

/// The newer search is the one that a person has tuned.
void TestRecordingsControl::restLeavesWhatWasSearchedAgain() {
    Video* job = makeJob(shortRecording);
    job->state = Video::CancelRequested;
    driver->accept(job);
    announceClips(job, 1);
    searchAgain(*job);
    QTRY_COMPARE(numbers(), QStringList("#1"));
    Clip* found = &driver->clip(0);
    Video* other = makeJob(shortRecording);
    other->state = Video::CancelRequested;
    driver->accept(other);
    Q_EMIT dock().restAsked();
    QVERIFY(other->isSuperseded && !job->isSuperseded);
    QTRY_COMPARE(numbers(), QStringList({"#1", "#0"}));
    QCOMPARE(&driver->clip(0), found);
}

/// Whoever adds four files sees four, once a recording of them was accepted.
void TestRecordingsControl::whatSetupDropsHasARow() {
    const QString text = folder->filePath("notes.txt");
    QVERIFY(writeFile(text, "Nothing moves.\n"));
    const QString broken = folder->filePath("broken.mp4");
    QVERIFY(writeFile(broken, QByteArray(5000, '\x7f')));
    QVERIFY(QFile::copy(shortRecording, folder->filePath("good.mp4")));
    const QString good = folder->filePath("good.mp4");
    driver->setup.addFiles({text, broken, good, folder->filePath("missing.mp4")});
    QTRY_VERIFY(driver->setup.isVisible());
    QTest::qWait(300);
    const auto& button = driver->part<QToolButton>("buttonRecordings");
    QCOMPARE(button.text(), QString("Recordings"));
    driver->setupPart<QLineEdit>("lineEditDir").setText(folder->path());
    driver->clickSetup("pushButtonAdd");
    QTRY_COMPARE(button.text(), QString("Recordings: 4, 3 unreadable"));
    const QAbstractItemModel* rows = driver->part<QTableView>("recordings").model();
    QHash<QString, QString> states;
    for (int row = 0; row < rows->rowCount(); ++row)
        states[rows->index(row, 0).data().toString()] = rows->index(row, 1).data().toString();
    for (const char* name : {"notes.txt", "broken.mp4"})
        QCOMPARE(states[name], QString("unreadable: Invalid data found when processing input"));
    QCOMPARE(states["missing.mp4"], QString("unreadable: No such file or directory"));
    QTRY_COMPARE_WITH_TIMEOUT(rows->index(0, 1).data().toString(), QString("1 clip"),
                              longMilliseconds);
    QCOMPARE(QDir(folder->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList("good_mp4_0")); // no folders of those
}

void TestRecordingsControl::emptyListSaysWhy_data() {
    QTest::addColumn<QVector<int>>("states");
    QTest::addColumn<bool>("isAnyHidden");
    QTest::addColumn<QString>("text");
    using States = QVector<int>;
    const int failed = Video::Failed;
    const int finished = Video::Finished;
    const int cancelled = Video::CancelRequested;
    QTest::newRow("nothing was added") << States{} << false << "";
    QTest::newRow("filtered") << States{finished} << true << "All clips are hidden at the moment";
    QTest::newRow("no motion") << States{finished, failed} << false << "No motion was found";
    QTest::newRow("unreadable") << States{failed, failed} << false
                                << "Nothing of what was added could be read";
    QTest::newRow("cancelled") << States{cancelled, failed} << false
                               << "The search was cancelled before motion was found";
}

void TestRecordingsControl::emptyListSaysWhy() {
    QFETCH(QVector<int>, states);
    QFETCH(bool, isAnyHidden);
    EndedJobs jobs;
    for (const int state : states)
        jobs.add(QString("%1.avi").arg(state), state);
    QTEST(emptyListText(jobs.queue, isAnyHidden), "text");
}

void TestRecordingsControl::emptyListIsSilentWithoutDocks() {
    auto& dock = driver->part<QDockWidget>("dockRecordings");
    dock.setFloating(true); // the list keeps its size
    dock.hide();
    QTest::qWait(1200); // and has it
    auto& viewport = *driver->list().viewport();
    const QImage before = viewport.grab().toImage();
    failedJob();
    QTest::qWait(1200); // until there is no progress any more
    QCOMPARE(viewport.grab().toImage(), before);
    dock.show();
    QVERIFY(viewport.grab().toImage() != before);
}

void TestRecordingsControl::reportIsThatOfTheScanner() {
    Video* job = makeJob(shortRecording);
    Video* broken = makeJob(QCoreApplication::applicationFilePath());
    driver->setup.readyVideos.append(job);
    driver->accept(broken);
    QTRY_COMPARE_WITH_TIMEOUT(int(broken->state), int(Video::Failed), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), 1);
    QTRY_VERIFY(!broken->news.facts().error.isEmpty());
    const QString report = saveReport();
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(report + "/index.html"), longMilliseconds);
    const QString scanned = folder->filePath("scanned");
    // The window keeps maps of cells as the scanner does with values: the page tells where motion
    // was.
    runProgram("kestrova-scan",
               {"--minimum", "2", "--postrecord", "2", "--values", folder->filePath("kept"),
                "--report", scanned, shortRecording, broken->fileName});
    QVERIFY(readFile(scanned + "/index.html").contains("<svg class=\"where\""));
    QCOMPARE(readFile(report + "/index.html"), readFile(scanned + "/index.html"));
    QCOMPARE(QDir(report + "/pictures").entryList(QDir::Files),
             QDir(scanned + "/pictures").entryList(QDir::Files));
    const QString picture = "/pictures/short.mp4-0000.png"; // which also tells of the screen here
    QCOMPARE(QImage(report + picture), QImage(scanned + picture));
}

/// That one cannot be read does not make it a report of the other detector.
void TestRecordingsControl::reportOfCells() {
    const std::unique_ptr<Video> made(makeJob(shortRecording));
    JobRecord record = made->record();
    DecidingOptions cells;
    cells.detector = Detector::Cells;
    cells.segmentation = {1.0, 2.0, 2.0, {0.7F}};
    record.search.deciding = cells;
    auto* job = new Video(record);
    driver->accept(makeJob(QCoreApplication::applicationFilePath()));
    driver->accept(job);
    QTRY_COMPARE_WITH_TIMEOUT(int(job->state), int(Video::Finished), longMilliseconds);
    const QString report = saveReport();
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(report + "/index.html"), longMilliseconds);
    const QString scanned = folder->filePath("scanned");
    runProgram("kestrova-scan",
               {"--detector", "cells", "--minimum", "2", "--postrecord", "2", "--report", scanned,
                QCoreApplication::applicationFilePath(), shortRecording});
    QCOMPARE(readFile(report + "/index.html"), readFile(scanned + "/index.html"));
}

/// As those of a session that was gone on with.
void TestRecordingsControl::reportOfKeptValues() {
    Video* job = makeJob(shortRecording);
    driver->accept(job);
    QTRY_COMPARE_WITH_TIMEOUT(int(job->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), 1);
    job->motionValues.clear();
    job->frameTimes.clear();
    const QString report = saveReport();
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(report + "/index.html"), longMilliseconds);
    const QString scanned = folder->filePath("scanned");
    runProgram("kestrova-scan", {"--minimum", "2", "--postrecord", "2", "--values",
                                 folder->filePath("kept"), "--report", scanned, shortRecording});
    QCOMPARE(readFile(report + "/index.html"), readFile(scanned + "/index.html"));
}

void TestRecordingsControl::reportThatCannotBeWritten() {
    announceClips(failedJob(), 2);
    QTRY_COMPARE(driver->list().count(), 2);
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit few{100, before.rlim_max};
    QSettings().sync();
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &few), 0);
    const QString report = saveReport();
    QTRY_VERIFY(driver->window.findChild<QMessageBox*>("reportFailure"));
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    auto& box = driver->part<QMessageBox>("reportFailure");
    QVERIFY2(box.text().contains("large"), qPrintable(box.text()));
    box.close();
    QCOMPARE(QDir(report).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestRecordingsControl::reportIsNotReplacedUnasked() {
    failedJob();
    QDir(folder->path()).mkpath("report");
    QFile page(folder->filePath("report/index.html"));
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write("mine");
    page.close();
    // Return alone must not do it.
    DialogAnswer<QMessageBox> answer(
        [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    saveReport();
    QVERIFY(answer.wasShown());
    QCOMPARE(readFile(page.fileName()), QByteArray("mine"));
}

QTEST_MAIN(TestRecordingsControl)
#include "test_recordingscontrol.moc"
