// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playercontrol.h"

#include "cliplistwidget.h"
#include "numberedpictures.h"
#include "playerdock.h"
#include "video.h"

#include <QLibrary>
#include <QMainWindow>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

constexpr int longMilliseconds = 20000;

} // namespace

/// A list with three clips, at the pictures 10, 30 and 50.
class TestPlayerControl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void nothingIsPlayedWhileHidden();
    void chosenClipIsShown();
    void chosenClipGoesOnPlaying();
    void clipIsPlayedOnDemand();
    void timeIsShownUntilAClipIsChosen();
    void chosenClipComesBackWithAClick();
    void nextAndPreviousSkipWhatIsHidden();
    void removedClipIsLetGo();
    void vanishedRecordingIsTold();
    void changedRecordingIsTold();
    void listKeepsItsKeys();

private:
    Clip* clip(int row) { return static_cast<Clip*>(list->item(row)); }
    void choose(int row) { list->setCurrentRow(row); }
    QString shown() const { return dock->windowTitle(); }

    int number() {
        const QImage seen = dock->picture()->grab().toImage();
        return numbered::numberAt(seen, dock->pictureRectangle().center());
    }

    QTemporaryDir folder;
    QString file;
    std::unique_ptr<QMainWindow> window;
    std::unique_ptr<Video> video;
    std::unique_ptr<PlayerControl> control;
    ClipListWidget* list = nullptr;
    PlayerDock* dock = nullptr;
};

void TestPlayerControl::initTestCase() {
    if (!QLibrary("mpv", 2).load())
        QSKIP("libmpv is not installed");
}

void TestPlayerControl::init() {
    file = folder.filePath("plain.mkv");
    QVERIFY(numbered::encode(file, {"-c:v", "libx264", "-crf", "1", "-g", "20"}));
    video = std::make_unique<Video>(file, folder.path(), 1.0, 1.0, 1.0, 0, false, nullptr, nullptr,
                                    false, QDateTime());
    window = std::make_unique<QMainWindow>();
    list = new ClipListWidget(window.get());
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    dock = new PlayerDock(window.get());
    window->setCentralWidget(list);
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->hide();
    for (int i = 0; i < 3; ++i) {
        const double start = 0.4 + 0.8 * i;
        list->addItem(new Clip(video.get(), i, media::grey(32, 24, 90), start, start + 0.6, start));
    }
    control = std::make_unique<PlayerControl>(*list, *dock);
    window->resize(900, 600);
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void TestPlayerControl::cleanup() {
    control.reset();
    window.reset();
    video.reset();
    QTRY_VERIFY(!PlayerDock::isAnyAbandoned());
}

void TestPlayerControl::nothingIsPlayedWhileHidden() {
    choose(1);
    QTest::qWait(200);
    QCOMPARE(shown(), QString("Player"));
    dock->show();
    QTRY_COMPARE_WITH_TIMEOUT(number(), 30, longMilliseconds);
    dock->hide();
    QTRY_COMPARE(shown(), QString("Player"));
    choose(2);
    dock->show();
    QTRY_COMPARE_WITH_TIMEOUT(number(), 50, longMilliseconds);
}

void TestPlayerControl::chosenClipIsShown() {
    dock->show();
    for (const int row : {0, 2, 1}) {
        choose(row);
        QTRY_COMPARE_WITH_TIMEOUT(number(), 10 + 20 * row, longMilliseconds);
        QCOMPARE(shown(), QString("Player: plain.mkv #%1").arg(row));
        QVERIFY(!dock->isPlaying());
    }
    list->clearSelection();
    QTRY_COMPARE(shown(), QString("Player"));
}

void TestPlayerControl::chosenClipGoesOnPlaying() {
    control->play(clip(0));
    QTRY_VERIFY_WITH_TIMEOUT(dock->isPlaying(), longMilliseconds);
    clip(1)->setSelected(true); // one more
    QTest::qWait(200);
    QVERIFY(dock->isPlaying());
    QCOMPARE(shown(), QString("Player: plain.mkv #0"));
}

void TestPlayerControl::clipIsPlayedOnDemand() {
    QVERIFY(dock->isHidden());
    control->play(clip(2));
    QVERIFY(dock->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(dock->isPlaying(), longMilliseconds);
    QCOMPARE(list->currentRow(), 2);
    QCOMPARE(shown(), QString("Player: plain.mkv #2"));
    QCOMPARE(QApplication::focusWidget(), dock->picture());
    QTRY_VERIFY(number() > 51);
}

void TestPlayerControl::timeIsShownUntilAClipIsChosen() {
    choose(1);
    control->showTime(*video, 1.6);
    QVERIFY(dock->isVisible());
    QCOMPARE(QApplication::focusWidget(), dock->picture());
    QTRY_COMPARE_WITH_TIMEOUT(number(), 40, longMilliseconds);
    QCOMPARE(shown(), QString("Player: plain.mkv"));
    QVERIFY(!dock->isPlaying());
    // All of the recording is there.
    QTest::keyClick(dock->picture(), Qt::Key_Left);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 15, longMilliseconds);
    QTest::keyClick(dock->picture(), Qt::Key_N);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 50, longMilliseconds);
    QCOMPARE(shown(), QString("Player: plain.mkv #2"));
}

void TestPlayerControl::chosenClipComesBackWithAClick() {
    choose(1);
    control->showTime(*video, 1.6);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 40, longMilliseconds);
    list->scrollToItem(clip(1));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(clip(1)).center());
    QTRY_COMPARE_WITH_TIMEOUT(number(), 30, longMilliseconds);
}

void TestPlayerControl::nextAndPreviousSkipWhatIsHidden() {
    clip(1)->setHidden(true);
    control->play(clip(0));
    QTRY_VERIFY_WITH_TIMEOUT(dock->isPlaying(), longMilliseconds);
    QTest::keyClick(dock->picture(), Qt::Key_N);
    QCOMPARE(list->currentRow(), 2);
    QCOMPARE(list->selectedClips(), QList<Clip*>{clip(2)});
    // What plays goes on to play.
    QTRY_VERIFY_WITH_TIMEOUT(number() > 51, longMilliseconds);
    QTest::keyClick(dock->picture(), Qt::Key_N);
    QCOMPARE(list->currentRow(), 2);
    QTest::keyClick(dock->picture(), Qt::Key_Space);
    QTRY_VERIFY(!dock->isPlaying());
    QTest::keyClick(dock->picture(), Qt::Key_P);
    QCOMPARE(list->currentRow(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 10, longMilliseconds);
    QVERIFY(!dock->isPlaying());
}

void TestPlayerControl::removedClipIsLetGo() {
    control->play(clip(0));
    QTRY_VERIFY_WITH_TIMEOUT(dock->isPlaying(), longMilliseconds);
    list->selectAll();
    list->removeSelected();
    QTRY_COMPARE(shown(), QString("Player"));
    QVERIFY(dock->pictureRectangle().isEmpty());
}

void TestPlayerControl::vanishedRecordingIsTold() {
    QVERIFY(QFile::remove(file));
    control->play(clip(0));
    auto* outside = dock->findChild<QPushButton*>("buttonOpenOutside");
    QTRY_VERIFY_WITH_TIMEOUT(outside->isVisible(), longMilliseconds);
    QCOMPARE(dock->picture()->accessibleDescription(),
             QString("The recording is no longer there."));
    QVERIFY(!dock->isPlaying());
}

void TestPlayerControl::changedRecordingIsTold() {
    QFile recording(file);
    QVERIFY(recording.open(QIODevice::Append));
    recording.write("more");
    recording.close();
    control->play(clip(0));
    auto* outside = dock->findChild<QPushButton*>("buttonOpenOutside");
    QTRY_VERIFY_WITH_TIMEOUT(outside->isVisible(), longMilliseconds);
    QCOMPARE(dock->picture()->accessibleDescription(),
             QString("The recording has changed since it was searched."));
}

void TestPlayerControl::listKeepsItsKeys() {
    dock->show();
    choose(0);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 10, longMilliseconds);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Space);
    QTest::keyClick(list, Qt::Key_N);
    QTest::qWait(200);
    QVERIFY(!dock->isPlaying());
    QCOMPARE(list->currentRow(), 0);
}

QTEST_MAIN(TestPlayerControl)
#include "test_playercontrol.moc"
