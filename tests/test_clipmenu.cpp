// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipmenu.h"
#include "files.h"
#include "listfilter.h"
#include "process.h"
#include "recordingsdock.h"
#include "windowtest.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QMenu>

/// The context menu of the window's clip list.
class TestClipMenu : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { open(); }
    void cleanup() { close(); }

    void mouseOpensIt();
    void menuKeyOpensIt();
    void fixedActionsAreTheSameOnes();
    void emptyListHasNothingToDo();
    void playAsksForTheCurrentClip();
    void vanishedRecordingIsNotPlayed();
    void fileNamesAreCopied();
    void folderIsShown();
    void recordingIsShownAlone();
    void sortingKeepsHiddenClipsHidden();
    void listsAreThoseOfTheScanner_data();
    void listsAreThoseOfTheScanner();
    void selectedClipsAloneAreListed();
    void hiddenClipsAreNotListed();
    void failureToWriteIsTold();
    void dialogThatIsCancelledWritesNothing();

public Q_SLOTS:
    void noteUrl(const QUrl& url) { opened.append(url); }

private:
    QMenu& menu() const;
    void choose(const char* action) const;
    void choose(const char* action, const QString& file) const;
    Video* jobWithClips(int count);
    QString message() const { return driver->part<QStatusBar>("statusBar").currentMessage(); }

    QString stream; ///< whose clock does not begin at 0
    QList<QUrl> opened;
};

void TestClipMenu::initTestCase() {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/none"); // no person's file manager
    makeRecordings();
    stream = recordings.filePath("two words.ts");
    QVERIFY(media::encode(media::crossingBox(12, 3, 9, "160x120") +
                          QStringList{"-c:v", "libx264", "-bf", "2", stream}));
}

QMenu& TestClipMenu::menu() const {
    QMenu* found = nullptr;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == "menuClips")
            found = qobject_cast<QMenu*>(widget);
    }
    return *found;
}

void TestClipMenu::choose(const char* action) const {
    menu().findChild<QAction*>(action)->trigger();
}

/// Answers the question for a file.
void TestClipMenu::choose(const char* action, const QString& file) const {
    DialogAnswer<QFileDialog> answer([&file](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(file);
        QMetaObject::invokeMethod(&dialog, file.isEmpty() ? "reject" : "accept");
    });
    choose(action);
}

/// Of a recording that is there.
Video* TestClipMenu::jobWithClips(int count) {
    Video* job = makeJob(shortRecording);
    job->state = Video::Finished;
    driver->accept(job);
    announceClips(job, count);
    return job;
}

void TestClipMenu::mouseOpensIt() {
    jobWithClips(2);
    auto& list = driver->list();
    const QPoint place = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list.viewport(), &event);
    QVERIFY(menu().isVisible());
    QVERIFY(driver->clip(1).isSelected());
    QVERIFY(menu().findChild<QAction*>("actionPlay")->isEnabled());
    menu().close();
}

void TestClipMenu::menuKeyOpensIt() {
    jobWithClips(2);
    driver->window.activateWindow();
    driver->list().setFocus();
    driver->list().setCurrentRow(1);
    QTRY_VERIFY(driver->list().hasFocus());
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}); // as the window system tells of it
    QCoreApplication::sendEvent(driver->window.windowHandle(), &event);
    QVERIFY(menu().isVisible());
    const QRect list(driver->list().mapToGlobal({0, 0}), driver->list().size());
    QVERIFY(list.contains(menu().pos()));
    menu().close();
}

void TestClipMenu::fixedActionsAreTheSameOnes() {
    for (const char* name :
         {"actionOpen_selected", "actionExport_selected", "actionRemoveSelected"})
        QVERIFY2(menu().actions().contains(&driver->action(name)), name);
    for (const QAction* action : menu().actions())
        QVERIFY(action->isSeparator() || !action->objectName().isEmpty() ||
                !action->menu()->objectName().isEmpty());
}

void TestClipMenu::emptyListHasNothingToDo() {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {});
    QCoreApplication::sendEvent(driver->list().viewport(), &event);
    for (const char* name : {"actionPlay", "actionShowInFolder", "actionCopyName",
                             "actionOnlyThisRecording", "actionExportJoined"}) {
        QVERIFY2(!menu().findChild<QAction*>(name)->isEnabled(), name);
        choose(name); // what a program may ask for all the same
    }
    for (const char* name : {"actionSortStrength", "actionSortFound"})
        choose(name);
    menu().close();
}

void TestClipMenu::playAsksForTheCurrentClip() {
    jobWithClips(3);
    driver->list().setCurrentRow(1);
    Clip* asked = nullptr;
    auto* clipMenu = driver->window.findChild<ClipMenu*>();
    QVERIFY(clipMenu);
    connect(clipMenu, &ClipMenu::playAsked, this, [&asked](Clip* clip) { asked = clip; });
    choose("actionPlay");
    QCOMPARE(asked, &driver->clip(1));
}

void TestClipMenu::vanishedRecordingIsNotPlayed() {
    announceClips(failedJob(), 1);
    driver->list().setCurrentRow(0);
    bool isAsked = false;
    connect(driver->window.findChild<ClipMenu*>(), &ClipMenu::playAsked, this,
            [&isAsked] { isAsked = true; });
    choose("actionPlay");
    QVERIFY(!isAsked);
    QCOMPARE(message(), QString("missing.mp4 is no longer there"));
}

void TestClipMenu::fileNamesAreCopied() {
    jobWithClips(3);
    driver->clip(0).exportClip(false);
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    driver->list().selectAll();
    choose("actionCopyName");
    QCOMPARE(QGuiApplication::clipboard()->text(),
             driver->clip(0).outputPath + '\n' + shortRecording);
}

void TestClipMenu::folderIsShown() {
    opened.clear();
    QDesktopServices::setUrlHandler("file", this, "noteUrl");
    jobWithClips(1);
    driver->list().setCurrentRow(0);
    choose("actionShowInFolder");
    QTRY_COMPARE(opened.size(), 1);
    QCOMPARE(opened[0].path(), recordings.path());
    QDesktopServices::unsetUrlHandler("file");
}

void TestClipMenu::recordingIsShownAlone() {
    jobWithClips(1);
    Video* second = jobWithClips(1);
    driver->list().setCurrentRow(1);
    Video* asked = nullptr;
    connect(&driver->part<RecordingsDock>("dockRecordings"), &RecordingsDock::onlyThisAsked, this,
            [&asked](Video* video) { asked = video; });
    choose("actionOnlyThisRecording");
    QCOMPARE(asked, second);
}

void TestClipMenu::sortingKeepsHiddenClipsHidden() {
    jobWithClips(5);
    driver->window.findChild<ListFilter*>()->set("test",
                                                 [](const Clip& clip) { return clip.index != 1; });
    choose("actionSortLength");
    choose("actionSortFound");
    QCOMPARE(driver->list().count(), 5);
    for (int row = 0; row < 5; ++row)
        QCOMPARE(driver->clip(row).isHidden(), driver->clip(row).index == 1);
}

void TestClipMenu::listsAreThoseOfTheScanner_data() {
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("action");
    QTest::newRow("m3u") << "m3u" << QByteArray("actionListM3u");
    QTest::newRow("mpv") << "mpv" << QByteArray("actionListMpv");
    QTest::newRow("edl") << "edl" << QByteArray("actionListEdl");
    QTest::newRow("mlt") << "mlt" << QByteArray("actionListMlt");
    QTest::newRow("cuts") << "cuts" << QByteArray("actionListCuts");
}

void TestClipMenu::listsAreThoseOfTheScanner() {
    QFETCH(QString, format);
    QFETCH(QByteArray, action);
    driver->accept(makeJob(stream));
    driver->accept(makeJob(shortRecording));
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 2, longMilliseconds);
    QTRY_VERIFY_WITH_TIMEOUT(driver->clip(1).video->hasEnded(), longMilliseconds);
    const QString file = folder->filePath("list");
    choose(action.constData(), file + ".x");
    QTRY_VERIFY(QFile::exists(file + ".x"));
    const ProcessResult scanned =
        runProgram("kestrova-scan", {"--quiet", "--prerecord", "1", "--postrecord", "2",
                                     "--minimum", "2", "--format", format, stream, shortRecording});
    QCOMPARE(scanned.status, 0);
    QVERIFY(scanned.output.contains("short"));
    QCOMPARE(readFile(file + ".x"), scanned.output);
    QTRY_COMPARE(message(), QString("2 clips listed in " + file + ".x"));
}

void TestClipMenu::selectedClipsAloneAreListed() {
    driver->accept(makeJob(stream));
    driver->accept(makeJob(shortRecording));
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 2, longMilliseconds);
    QTRY_VERIFY_WITH_TIMEOUT(driver->clip(1).video->hasEnded(), longMilliseconds);
    driver->list().setCurrentRow(1);
    choose("actionListCuts", folder->filePath("list.txt"));
    QTRY_VERIFY(readFile(folder->filePath("list.txt")).endsWith("short.mp4 #0\n"));
    QCOMPARE(readFile(folder->filePath("list.txt")).count('\n'), 1);
}

void TestClipMenu::hiddenClipsAreNotListed() {
    driver->accept(makeJob(stream));
    driver->accept(makeJob(shortRecording));
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 2, longMilliseconds);
    QTRY_VERIFY_WITH_TIMEOUT(driver->clip(1).video->hasEnded(), longMilliseconds);
    driver->clip(1).setHidden(true);
    choose("actionListCuts", folder->filePath("list.txt"));
    QTRY_VERIFY(readFile(folder->filePath("list.txt")).endsWith("two words.ts #0\n"));
    QCOMPARE(readFile(folder->filePath("list.txt")).count('\n'), 1);
}

void TestClipMenu::failureToWriteIsTold() {
    driver->accept(makeJob(shortRecording));
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    const QString file = "/proc/self/list.txt"; // where not even the superuser can write
    choose("actionListCuts", file);
    QTRY_VERIFY(message().startsWith(file + " cannot be written: "));
}

void TestClipMenu::dialogThatIsCancelledWritesNothing() {
    jobWithClips(1);
    choose("actionListCuts", {});
    QTest::qWait(200);
    QVERIFY(message().isEmpty());
}

QTEST_MAIN(TestClipMenu)
#include "test_clipmenu.moc"
