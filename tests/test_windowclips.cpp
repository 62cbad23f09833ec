// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenamecodec.h"
#include "windowtest.h"

#include <unistd.h>

class TestWindowClips : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        installFileNameCodec();
        makeRecordings();
    }
    void init() { open(); }
    void cleanup() { close(); }

    void clipIsListed();
    void automaticExport();
    void backlogMessage();
    void exportsSelected();
    void opensSelected();
    void doubleClickOpens();
    void otherButtonsOpenNothing();
    void removesSelected();
    void removesAll();
    void removesAllQueued();
    void removesSomeOfTheQueued();
    void quittingStartsNoEncoder();
    void failureIsTold();
    void listActionsFollowTheSelection();
    void clipOfAnotherSenderIsIgnored();
    void directoryGoesToSetup();
    void emptyDirectoryGoesToSetup();
    void addFilesOpensWhereThePersonWas();
    void nameThatIsNotUtf8();
};

void TestWindowClips::clipIsListed() {
    driver->accept(makeJob(shortRecording));
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    const Clip& clip = driver->clip(0);
    QCOMPARE(clip.text().section('\n', 0, 0), QString("short.mp4"));
    QVERIFY(driver->captions()[0].endsWith("(not exported)"));
    QCOMPARE(clip.icon().actualSize({320, 320}), QSize(320, 240));
    QCOMPARE(Clip::exportQueueLength(), 0);
    QVERIFY(driver->action("actionRemoveAll").isEnabled());
    QVERIFY(!driver->action("actionRemoveSelected").isEnabled());
}

void TestWindowClips::automaticExport() {
    encoder->hold();
    announceClips(failedJob(true), 2);
    QCOMPARE(driver->captions(),
             QStringList({"#0 0:00:00 (5 sec) (queued...)", "#1 0:00:10 (5 sec) (queued...)"}));
    QCOMPARE(Clip::exportQueueLength(), 3);
    QTRY_COMPARE(encoder->outputs(), QStringList({"0000.avi"}));
    encoder->release();
    QTRY_COMPARE(driver->captions(),
                 QStringList({"#0 0:00:00 (5 sec) (exported)", "#1 0:00:10 (5 sec) (exported)"}));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0001.avi"}));
}

void TestWindowClips::backlogMessage() {
    auto& statusBar = driver->part<QStatusBar>("statusBar");
    encoder->hold();
    announceClips(failedJob(), 4);
    tick();
    QVERIFY(statusBar.currentMessage().isEmpty());
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(statusBar.currentMessage(), QString("3 clips queued to export..."));
    statusBar.clearMessage();
    QTRY_COMPARE(statusBar.currentMessage(), QString("3 clips queued to export..."));
    encoder->release();
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    QTRY_VERIFY(statusBar.currentMessage().isEmpty());
}

void TestWindowClips::exportsSelected() {
    announceClips(failedJob(), 4);
    driver->clip(1).setSelected(true);
    driver->clip(3).setSelected(true);
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(
        driver->captions(),
        QStringList({"#0 0:00:00 (5 sec) (not exported)", "#1 0:00:10 (5 sec) (exported)",
                     "#2 0:00:20 (5 sec) (not exported)", "#3 0:00:30 (5 sec) (exported)"}));
}

void TestWindowClips::opensSelected() {
    encoder->setEnd("1");
    announceClips(failedJob(), 3);
    driver->clip(2).setSelected(true);
    driver->trigger("actionOpen_selected");
    QVERIFY(driver->clip(2).openWhenDone);
    QVERIFY(!driver->clip(0).openWhenDone);
    QTRY_COMPARE(driver->clip(2).status, int(Clip::ExportFailed));
}

void TestWindowClips::doubleClickOpens() {
    encoder->setEnd("1");
    announceClips(failedJob(), 3);
    driver->clip(0).setSelected(true);
    const QRect place = driver->list().visualItemRect(&driver->clip(1));
    QTest::mouseClick(driver->list().viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(driver->list().viewport(), Qt::LeftButton, {}, place.center());
    QVERIFY(driver->clip(1).openWhenDone);
    QVERIFY(!driver->clip(0).openWhenDone);
    QTRY_COMPARE(driver->clip(1).status, int(Clip::ExportFailed));
}

void TestWindowClips::otherButtonsOpenNothing() {
    announceClips(failedJob(), 1);
    const QPoint place = driver->list().visualItemRect(&driver->clip(0)).center();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(driver->list().viewport(), button, {}, place);
        QTest::mouseDClick(driver->list().viewport(), button, {}, place);
        QVERIFY(!driver->clip(0).openWhenDone);
        QCOMPARE(driver->clip(0).status, int(Clip::NotExported));
    }
}

void TestWindowClips::removesSelected() {
    announceClips(failedJob(), 4);
    const QPointer<Clip> first(&driver->clip(0));
    driver->clip(0).setSelected(true);
    driver->clip(2).setSelected(true);
    driver->trigger("actionRemoveSelected");
    QCOMPARE(driver->captions(), QStringList({"#1 0:00:10 (5 sec) (not exported)",
                                              "#3 0:00:30 (5 sec) (not exported)"}));
    QVERIFY(!first);
    QVERIFY(!driver->action("actionRemoveSelected").isEnabled());
    QVERIFY(driver->action("actionRemoveAll").isEnabled());
}

void TestWindowClips::removesAll() {
    announceClips(failedJob(), 4);
    driver->clip(1).setSelected(true);
    const QPointer<Clip> first(&driver->clip(0));
    const QSignalSpy told(driver->list().model(), SIGNAL(rowsRemoved(QModelIndex, int, int)));
    driver->trigger("actionRemoveAll");
    QCOMPARE(driver->list().count(), 0);
    QVERIFY(!first);
    QCOMPARE(told.size(), 1); // not once for each of thousands
    for (const char* name : {"actionOpen_selected", "actionExport_selected", "actionRemoveSelected",
                             "actionRemoveAll"})
        QVERIFY2(!driver->action(name).isEnabled(), name);
}

void TestWindowClips::removesAllQueued() {
    encoder->hold();
    Video* job = failedJob(true);
    announceClips(job, 300);
    QCOMPARE(Clip::exportQueueLength(), 599); // asked for twice, and the first one runs
    QTRY_COMPARE(encoder->outputs(), QStringList({"0000.avi"}));
    driver->trigger("actionRemoveAll");
    QCOMPARE(driver->list().count(), 0);
    QCOMPARE(Clip::exportQueueLength(), 0);
    encoder->release();
    // One that is asked for now comes after all that would have been started before.
    const Clip last(job, 999, QImage(), 0.0, 5.0, 1.0);
    QTRY_COMPARE(last.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0999.avi"}));
}

void TestWindowClips::removesSomeOfTheQueued() {
    encoder->hold();
    announceClips(failedJob(), 300);
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(encoder->outputs(), QStringList({"0000.avi"}));
    driver->clip(150).setSelected(false);
    driver->clip(299).setSelected(false);
    driver->trigger("actionRemoveSelected");
    QCOMPARE(driver->captions(), QStringList({"#150 0:25:00 (5 sec) (exporting...)",
                                              "#299 0:49:50 (5 sec) (queued...)"}));
    encoder->release();
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0150.avi", "0299.avi"}));
}

void TestWindowClips::quittingStartsNoEncoder() {
    encoder->hold();
    Video* job = makeJob(shortRecording);
    const QThread* worker = acceptStalled(job);
    announceClips(job, 3);
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(encoder->calls().size(), 1);
    // The worker is given up with its job, so that the clips still have one.
    QTest::ignoreMessage(QtDebugMsg, "Processing thread wait failed");
    driver.reset();
    QCOMPARE(Clip::exportQueueLength(), 0);
    gate.unlock();
    QTRY_VERIFY(worker->isFinished());
    encoder->release();
    const std::unique_ptr<Video> laterJob(makeJob(shortRecording, true));
    const Clip later(laterJob.get(), 999, QImage(), 0.0, 5.0, 1.0);
    QTRY_COMPARE(later.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0999.avi"}));
}

void TestWindowClips::failureIsTold() {
    auto& statusBar = driver->part<QStatusBar>("statusBar");
    encoder->setEnd("1");
    announceClips(failedJob(), 3);
    driver->clip(1).setSelected(true);
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(driver->clip(1).status, int(Clip::ExportFailed));
    QCOMPARE(statusBar.currentMessage(), QString("missing.mp4 #1: told to fail"));
    QVERIFY(driver->clip(1).toolTip().contains("told to fail"));
    // The backlog covers it for as long as there is one.
    encoder->hold();
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    tick();
    QCOMPARE(statusBar.currentMessage(), QString("2 clips queued to export..."));
    encoder->release();
    QTRY_COMPARE(driver->clip(2).status, int(Clip::ExportFailed));
    statusBar.clearMessage();
    tick();
    QCOMPARE(statusBar.currentMessage(), QString("missing.mp4 #2: told to fail"));
}

void TestWindowClips::listActionsFollowTheSelection() {
    announceClips(failedJob(), 2);
    driver->list().selectAll();
    for (const char* name : {"actionOpen_selected", "actionExport_selected", "actionRemoveSelected",
                             "actionRemoveAll"})
        QVERIFY2(driver->action(name).isEnabled(), name);
    driver->list().clearSelection();
    for (const char* name :
         {"actionOpen_selected", "actionExport_selected", "actionRemoveSelected"})
        QVERIFY2(!driver->action(name).isEnabled(), name);
    QVERIFY(driver->action("actionRemoveAll").isEnabled());
}

void TestWindowClips::clipOfAnotherSenderIsIgnored() {
    QMetaObject::invokeMethod(&driver->window, "newClip", Q_ARG(int, 0), Q_ARG(QImage, QImage()),
                              Q_ARG(double, 0.0), Q_ARG(double, 1.0), Q_ARG(double, 0.5));
    QCOMPARE(driver->list().count(), 0);
}

void TestWindowClips::directoryGoesToSetup() {
    const QDir directory(folder->path());
    QVERIFY(directory.mkpath("in/deep") && directory.mkpath("out"));
    QVERIFY(QFile::copy(shortRecording, directory.filePath("in/deep/a.dat")));
    QVERIFY(QFile::copy(shortRecording, directory.filePath("in/.hidden.mp4")));
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), directory.filePath("in/b.mp4")));
    driver->addDirectory(directory.filePath("in"));
    QTRY_VERIFY(driver->setup.isVisible());
    QCOMPARE(driver->setupPart<QLabel>("labelInfo").text(), directory.filePath("in/deep/a.dat"));
    driver->setupPart<QLineEdit>("lineEditDir").setText(directory.filePath("out"));
    driver->clickSetup("pushButtonAddAll");
    QVERIFY(!driver->setup.isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    QCOMPARE(driver->clip(0).text().section('\n', 0, 0), QString("a.dat"));
    QCOMPARE(driver->clip(0).video->clipDirectory, directory.filePath("out/a_dat_0"));
}

void TestWindowClips::emptyDirectoryGoesToSetup() {
    QVERIFY(QDir(folder->path()).mkpath("empty"));
    driver->addFiles({shortRecording});
    QVERIFY(driver->setup.isVisible());
    driver->addDirectory(folder->filePath("empty"));
    QVERIFY(!driver->setup.isVisible()); // drops what it showed
}

void TestWindowClips::addFilesOpensWhereThePersonWas() {
    encoder->setEnd("1");
    announceClips(failedJob(), 1);
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(driver->clip(0).status, int(Clip::ExportFailed));
    QCOMPARE(QDir::currentPath(), QCoreApplication::applicationDirPath());
    QString shown;
    const DialogAnswer<QFileDialog> answer([&shown](QFileDialog& dialog) {
        shown = dialog.directory().path();
        dialog.reject();
    });
    driver->click("pushButtonAddFiles");
    QCOMPARE(shown, folder->path());
}

void TestWindowClips::nameThatIsNotUtf8() {
    const QDir directory(folder->path());
    const QString name = QFile::decodeName("caf\xe9 100%1.mp4");
    QVERIFY(directory.mkpath("in") && directory.mkpath("out"));
    QVERIFY(QFile::copy(shortRecording, directory.filePath("in/" + name)));
    driver->addDirectory(directory.filePath("in"));
    QCOMPARE(driver->setupPart<QLabel>("labelInfo").text(), directory.filePath("in/" + name));
    driver->setupPart<QLineEdit>("lineEditDir").setText(directory.filePath("out"));
    driver->clickSetup("pushButtonAddAll");
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    QCOMPARE(driver->clip(0).text().section('\n', 0, 0), name);
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    QVERIFY(encoder->calls()[0].contains(directory.filePath("in/" + name)));
    const QByteArray file =
        QFile::encodeName(directory.filePath("out")) + "/caf\xe9 100%1_mp4_0/0000.avi";
    QCOMPARE(access(file.constData(), R_OK), 0);
}

QTEST_MAIN(TestWindowClips)
#include "test_windowclips.moc"
