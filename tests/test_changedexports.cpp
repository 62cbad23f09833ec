// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "windowtest.h"

#include <QAbstractItemView>
#include <QDockWidget>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

/// Other bytes in the middle of a file; it is as large as before, and as old.
void replaceContent(const QString& path) {
    struct stat before {};
    QCOMPARE(stat(QFile::encodeName(path).constData(), &before), 0);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(file.size() / 2));
    QVERIFY(file.write(QByteArray(100, 'x')) == 100);
    file.close();
    const timespec times[] = {before.st_atim, before.st_mtim};
    QCOMPARE(utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
}

void append(const QString& path) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append));
    QVERIFY(file.write("more") == 4);
}

} // namespace

/// Exports from recordings that are others now than were searched.
class TestChangedExports : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeRecordings(); }
    void init();
    void cleanup() { close(); }

    void whatHasChangedIsNotExported_data();
    void whatHasChangedIsNotExported();
    void otherExportsGoOn();
    void whatIsTheSameIsExported_data();
    void whatIsTheSameIsExported();
    void untouchedRecordingIsExportedAtOnce();
    void quittingWhileItIsLookedAt();

private:
    Clip& search(const QString& name);

    QString own; ///< the recording that changes
};

void TestChangedExports::init() {
    open();
    own = folder->filePath("own.mp4");
    QVERIFY(QFile::copy(shortRecording, own));
}

/// The clip that is found in a recording.
Clip& TestChangedExports::search(const QString& name) {
    Video* job = makeJob(name);
    QSignalSpy end(job, SIGNAL(resultReady()));
    const int before = driver->list().count();
    driver->accept(job);
    [&] { QTRY_COMPARE_WITH_TIMEOUT(end.size(), 1, longMilliseconds); }();
    [&] { QTRY_COMPARE(driver->list().count(), before + 1); }();
    return driver->clip(before);
}

void TestChangedExports::whatHasChangedIsNotExported_data() {
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("row");
    const QString changed = "the recording has changed since it was searched";
    QTest::newRow("other content") << "content" << changed << "file has changed since, 1 clip";
    QTest::newRow("cut off") << "cut" << changed << "file has changed since, 1 clip";
    QTest::newRow("another recording") << "other" << changed << "file has changed since, 1 clip";
    QTest::newRow("gone") << "gone"
                          << "the recording is no longer there"
                          << "file is gone, 1 clip";
}

void TestChangedExports::whatHasChangedIsNotExported() {
    QFETCH(QString, change);
    QFETCH(QString, reason);
    QFETCH(QString, row);
    Clip& clip = search(own);
    if (change == "content")
        replaceContent(own);
    else if (change == "cut")
        QVERIFY(QFile::resize(own, QFileInfo(own).size() / 2));
    else
        QVERIFY(QFile::remove(own));
    if (change == "other")
        QVERIFY(QFile::copy(longRecording, own));
    clip.exportClip(false);
    QTRY_COMPARE(clip.status, int(Clip::ExportFailed));
    QVERIFY2(clip.toolTip().contains(reason), qPrintable(clip.toolTip()));
    tick();
    QCOMPARE(driver->part<QStatusBar>("statusBar").currentMessage(), "own.mp4 #0: " + reason);
    QCOMPARE(encoder->calls().size(), 0);
    const auto* rows = driver->part<QAbstractItemView>("recordings").model();
    QTRY_COMPARE(rows->index(0, 1).data().toString(), row);
}

void TestChangedExports::otherExportsGoOn() {
    Clip& changed = search(own);
    Clip& other = search(shortRecording);
    replaceContent(own);
    changed.exportClip(false);
    other.exportClip(false);
    QCOMPARE(other.status, int(Clip::Queued));
    QTRY_COMPARE(other.status, int(Clip::Exported));
    QCOMPARE(changed.status, int(Clip::ExportFailed));
    QCOMPARE(encoder->calls().size(), 1);
    QCOMPARE(Clip::exportQueueLength(), 0);
}

void TestChangedExports::whatIsTheSameIsExported_data() {
    QTest::addColumn<bool>("isLonger");
    QTest::newRow("other permissions") << false;
    QTest::newRow("appended to") << true;
}

void TestChangedExports::whatIsTheSameIsExported() {
    QFETCH(bool, isLonger);
    Clip& clip = search(own);
    if (isLonger)
        append(own);
    else
        QVERIFY(QFile::setPermissions(own, QFile::ReadOwner));
    clip.exportClip(false);
    QCOMPARE(clip.status, int(Clip::Exporting));
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    QCOMPARE(encoder->calls().size(), 1);
}

/// Also where the clip leaves the list before any event is dealt with.
void TestChangedExports::untouchedRecordingIsExportedAtOnce() {
    Clip& clip = search(own);
    clip.exportClip(false);
    driver->trigger("actionRemoveAll");
    QTRY_COMPARE(encoder->calls().size(), 1);
}

void TestChangedExports::quittingWhileItIsLookedAt() {
    Clip& clip = search(own);
    append(own);
    clip.exportClip(false);
    driver.reset();
    QTest::qWait(300);
    QCOMPARE(encoder->calls().size(), 0);
    driver = std::make_unique<MainWindowDriver>();
}

QTEST_MAIN(TestChangedExports)
#include "test_changedexports.moc"
