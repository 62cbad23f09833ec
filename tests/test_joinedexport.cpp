// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "captiondelegate.h"
#include "recordingsdock.h"
#include "windowtest.h"

#include <QToolTip>

/// Clips that are exported as one file, from the window's menu, by an encoder that does as it is
/// told.
class TestJoinedExport : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeRecordings(); }
    void init() { open(); }
    void cleanup() { close(); }

    void overlappingClipsBecomeOneFile();
    void touchingClipsJoinAndOthersDoNot();
    void recordingsAreKeptApart();
    void clipsShowWhatBecomesOfIt();
    void failureIsShown();
    void ownExportIsLeftAlone();
    void joinedClipWaitsItsTurn();
    void numbersAreNeverUsedTwice();
    void numbersOfOthersInTheFolderAreTaken();
    void refusedWhileItIsSearched();
    void automaticExportJoinsOnce();
    void removedPartsDoNotMatter();
    void quittingStartsNoEncoder();
    void quittingAfterARemovalStartsNoEncoder();
    void vanishedRecordingIsTold();

private:
    void announce(Video* job, int index, double start, double end);
    Video* existingJob(bool autoExport = false);
    void join(const QVector<int>& rows);
    QStringList cut(int call) const;
};

void TestJoinedExport::announce(Video* job, int index, double start, double end) {
    QImage snapshot(320, 240, QImage::Format_RGB32);
    snapshot.fill(Qt::green);
    Q_EMIT job->newClip(index, snapshot, start, end, start + 1.0);
}

/// One that has ended, so that its clips can be announced by hand.
Video* TestJoinedExport::existingJob(bool autoExport) {
    Video* job = makeJob(shortRecording, autoExport);
    job->state = Video::Finished;
    driver->accept(job);
    return job;
}

void TestJoinedExport::join(const QVector<int>& rows) {
    driver->list().clearSelection();
    for (int row : rows)
        driver->clip(row).setSelected(true);
    QAction* action = nullptr;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == "menuClips" && !action)
            action = widget->findChild<QAction*>("actionExportJoined");
    }
    QVERIFY(action);
    action->trigger();
}

/// Start, length and file of an encoder's call.
QStringList TestJoinedExport::cut(int call) const {
    const QStringList arguments = encoder->calls().value(call);
    return {arguments.value(arguments.indexOf("-ss") + 1),
            arguments.value(arguments.indexOf("-t") + 1), arguments.last().section('/', -1)};
}

void TestJoinedExport::overlappingClipsBecomeOneFile() {
    Video* job = existingJob();
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    announce(job, 2, 8.0, 12.0);
    join({0, 1, 2});
    QTRY_COMPARE(encoder->calls().size(), 1);
    QCOMPARE(cut(0), QStringList({"3", "17", "0003.avi"}));
    QTRY_COMPARE(driver->clip(2).status, int(Clip::Exported));
    QCOMPARE(driver->list().count(), 3); // the joined one is not listed
}

void TestJoinedExport::touchingClipsJoinAndOthersDoNot() {
    Video* job = existingJob();
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 9.0, 12.0);
    announce(job, 2, 13.0, 20.0);
    join({0, 1, 2});
    QTRY_COMPARE(encoder->outputs(), QStringList({"0003.avi", "0002.avi"}));
    QCOMPARE(cut(0).mid(0, 2), QStringList({"3", "9"}));
    QCOMPARE(cut(1).mid(0, 2), QStringList({"13", "7"}));
    QTRY_COMPARE(driver->clip(2).status, int(Clip::Exported));
}

void TestJoinedExport::recordingsAreKeptApart() {
    announce(existingJob(), 0, 3.0, 9.0);
    announce(existingJob(), 0, 5.0, 12.0);
    join({0, 1});
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0000.avi"}));
}

void TestJoinedExport::clipsShowWhatBecomesOfIt() {
    Video* job = existingJob();
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    announce(job, 2, 30.0, 40.0);
    encoder->hold();
    join({0, 1});
    QTRY_COMPARE(driver->captions(), QStringList({"#0 0:00:03 (6 sec) (exporting...)",
                                                  "#1 0:00:07 (13 sec) (exporting...)",
                                                  "#2 0:00:30 (10 sec) (not exported)"}));
    encoder->release();
    QTRY_COMPARE(driver->captions(),
                 QStringList({"#0 0:00:03 (6 sec) (exported)", "#1 0:00:07 (13 sec) (exported)",
                              "#2 0:00:30 (10 sec) (not exported)"}));
    QCOMPARE(driver->clip(0).outputPath, job->clipDirectory + "/0003.avi");
    QCOMPARE(driver->clip(1).outputPath, driver->clip(0).outputPath);
    QVERIFY(driver->clip(0).toolTip().contains("0003.avi"));
    QVERIFY(driver->clip(0).data(joinedRole).isValid());
    QCOMPARE(driver->clip(0).data(joinedRole), driver->clip(1).data(joinedRole));
    QVERIFY(!driver->clip(2).data(joinedRole).isValid());
}

void TestJoinedExport::failureIsShown() {
    Video* job = existingJob();
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    encoder->setEnd("1");
    join({0, 1});
    QTRY_COMPARE(driver->clip(1).status, int(Clip::ExportFailed));
    QVERIFY(driver->clip(0).toolTip().contains("told to fail"));
    encoder->setEnd("0");
    join({0, 1}); // tried again
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0002.avi", "0003.avi"}));
}

void TestJoinedExport::ownExportIsLeftAlone() {
    Video* job = existingJob();
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    driver->clip(0).exportClip(false);
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    const QString own = driver->clip(0).outputPath;
    encoder->hold();
    join({0, 1});
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exporting));
    QCOMPARE(driver->clip(0).status, int(Clip::Exported));
    driver->clip(1).exportClip(false); // waits behind the joined one
    encoder->release();
    QTRY_COMPARE(encoder->outputs(), QStringList({"0000.avi", "0002.avi", "0001.avi"}));
    QTRY_COMPARE(driver->clip(1).outputPath, job->clipDirectory + "/0001.avi");
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    QCOMPARE(driver->clip(0).outputPath, own);
}

void TestJoinedExport::joinedClipWaitsItsTurn() {
    Video* job = existingJob();
    announce(job, 0, 30.0, 39.0);
    announce(job, 1, 3.0, 9.0);
    announce(job, 2, 7.0, 20.0);
    encoder->hold();
    driver->clip(0).exportClip(false);
    join({1, 2});
    QCOMPARE(driver->clip(1).status, int(Clip::Queued));
    QCOMPARE(Clip::exportQueueLength(), 1);
    encoder->release();
    QTRY_COMPARE(driver->clip(2).status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0003.avi"}));
}

void TestJoinedExport::numbersAreNeverUsedTwice() {
    Video* job = existingJob();
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    join({0, 1});
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    QCOMPARE(job->nextClipNumber, 3);
    driver->trigger("actionRemoveAll");
    announce(job, 3, 3.0, 9.0);
    announce(job, 4, 7.0, 20.0);
    join({0, 1});
    QTRY_COMPARE(encoder->outputs(), QStringList({"0002.avi", "0005.avi"}));
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
}

void TestJoinedExport::numbersOfOthersInTheFolderAreTaken() {
    Video* job = existingJob();
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    JobRecord again = job->record();
    again.nextClipNumber = 12;
    driver->accept(new Video(again));
    join({0, 1});
    QTRY_COMPARE(encoder->outputs(), QStringList({"0012.avi"}));
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
}

void TestJoinedExport::refusedWhileItIsSearched() {
    Video* job = makeJob(longRecording);
    acceptStalled(job);
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    join({driver->list().count() - 2, driver->list().count() - 1});
    QCOMPARE(driver->part<QStatusBar>("statusBar").currentMessage(),
             QString("Clips of long.mp4 can be joined when its search has ended"));
    QCOMPARE(encoder->calls().size(), 0);
    driver->click("pushButtonCancel");
    QVERIFY(job->hasEnded());
    join({driver->list().count() - 2, driver->list().count() - 1}); // a clip may still come
    gate.unlock();
    QTRY_COMPARE(job->motionValues.isEmpty(), false);
    QTest::qWait(100);
    QCOMPARE(encoder->calls().size(), 0);
}

void TestJoinedExport::automaticExportJoinsOnce() {
    Video* job = existingJob(true);
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    join({0, 1});
    QTRY_COMPARE(encoder->outputs(), QStringList({"0000.avi", "0001.avi", "0002.avi"}));
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    QTest::qWait(300);
    QCOMPARE(encoder->calls().size(), 3);
}

void TestJoinedExport::removedPartsDoNotMatter() {
    Video* job = existingJob();
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    encoder->hold();
    join({0, 1});
    driver->list().clearSelection();
    driver->clip(0).setSelected(true);
    driver->trigger("actionRemoveSelected");
    encoder->release();
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
}

void TestJoinedExport::quittingStartsNoEncoder() {
    Video* job = existingJob();
    announce(job, 0, 30.0, 39.0);
    announce(job, 1, 3.0, 9.0);
    announce(job, 2, 7.0, 20.0);
    encoder->hold();
    driver->clip(0).exportClip(false);
    QTRY_COMPARE(encoder->calls().size(), 1);
    join({1, 2});
    driver.reset();
    QTest::qWait(300);
    QCOMPARE(encoder->calls().size(), 1);
    QCOMPARE(Clip::exportQueueLength(), 0);
}

/// The end of clips that were removed starts what waits.
void TestJoinedExport::quittingAfterARemovalStartsNoEncoder() {
    Video* removed = existingJob();
    announce(removed, 0, 3.0, 9.0);
    Video* job = existingJob();
    announce(job, 0, 30.0, 39.0);
    announce(job, 1, 3.0, 9.0);
    announce(job, 2, 7.0, 20.0);
    encoder->hold();
    driver->clip(1).exportClip(false);
    QTRY_COMPARE(encoder->calls().size(), 1);
    join({2, 3});
    Q_EMIT driver->part<RecordingsDock>("dockRecordings").clipsRemovalAsked(removed);
    driver.reset();
    QTest::qWait(300);
    QCOMPARE(encoder->calls().size(), 1);
    QCOMPARE(Clip::exportQueueLength(), 0);
}

void TestJoinedExport::vanishedRecordingIsTold() {
    const QString copy = folder->filePath("copy.mp4");
    QVERIFY(QFile::copy(shortRecording, copy));
    Video* job = makeJob(copy);
    job->state = Video::Finished;
    driver->accept(job);
    announce(job, 0, 3.0, 9.0);
    announce(job, 1, 7.0, 20.0);
    QVERIFY(QFile::remove(copy));
    join({0, 1});
    QCOMPARE(driver->part<QStatusBar>("statusBar").currentMessage(),
             QString("copy.mp4 is no longer there"));
    QVERIFY(QFile::copy(shortRecording, copy));
    QVERIFY(QFile::resize(copy, 1000));
    join({0, 1});
    QCOMPARE(driver->part<QStatusBar>("statusBar").currentMessage(),
             QString("copy.mp4 has changed since it was added"));
    QCOMPARE(encoder->calls().size(), 0);
}

QTEST_MAIN(TestJoinedExport)
#include "test_joinedexport.moc"
