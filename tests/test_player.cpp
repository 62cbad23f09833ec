// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playerdock.h"

#include "faults.h"
#include "files.h"
#include "numberedpictures.h"

#include <QAction>
#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QLibrary>
#include <QMainWindow>
#include <QProcess>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

constexpr int longMilliseconds = 20000;

/// Shows a clip in a program of its own, and answers what it says of it.
QByteArray wordsIn(const QProcessEnvironment& environment, const QString& file) {
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationFilePath(), {"--show", file});
    return program.waitForFinished(2 * longMilliseconds) ? program.readAllStandardOutput()
                                                         : QByteArray("no end");
}

/// What `wordsIn` starts.
int showAndTell(const QString& file) {
    PlayerDock dock;
    dock.show();
    if (file.isEmpty()) {
        const bool isLoaded = readFile("/proc/self/maps").contains("libmpv");
        return std::puts(isLoaded ? "loaded" : "not loaded") < 0 ? 1 : 0;
    }
    dock.setClip({file, "clip", 0.4, 1.0, -1}, false);
    const auto* outside = dock.findChild<QPushButton*>("buttonOpenOutside");
    const bool isTold = QTest::qWaitFor([outside] { return outside->isVisible(); }, 5000);
    std::puts(qPrintable(dock.picture()->accessibleDescription()));
    return isTold ? 0 : 1;
}

} // namespace

class TestPlayer : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void noteUrl(const QUrl& url) { opened.append(url); }
    void noteCancel() { ++cancelled; }

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void nothingIsLoadedBeforeAClip();
    void firstPictureIsShown();
    void pictureFitsIn();
    void stillIsShownBeforeAClip();
    void keysPlay();
    void keysAskForOtherClips();
    void controlsCanBeReached();
    void sliderGoesThroughTheClip();
    void wholeRecordingIsOffered();
    void speedAndSound();
    void muteHasAKey();
    void fullScreenIsLeftByEscape();
    void fullScreenComesBackToItsPlace();
    void fullScreenIsLeftByClosing();
    void failureIsToldAndAnotherProgramOffered();
    void hiddenDockLetsGo();
    void noClipEmptiesIt();
    void twoPixelsToOne();
    void withoutTheLibraryItSaysSo();
    void withoutThreadsItSaysSo();

private:
    template<class T>
    T& part(const char* name) {
        return *window->findChild<T*>(name);
    }

    /// What is seen in the middle of the picture.
    int number() {
        const QImage seen = dock->picture()->grab().toImage();
        const QPoint middle = dock->pictureRectangle().center();
        return numbered::numberAt(seen, middle * seen.devicePixelRatio());
    }

    void key(int code) { QTest::keyClick(dock->picture(), Qt::Key(code)); }
    PlayedClip clip(double start, double end) const {
        return {file, "plain.mkv #3", start, end, -1};
    }

    QTemporaryDir folder;
    QString file;
    std::unique_ptr<QMainWindow> window;
    PlayerDock* dock = nullptr;
    QList<QUrl> opened;
    int cancelled = 0;
};

void TestPlayer::initTestCase() {
    if (!QLibrary("mpv", 2).load())
        QSKIP("libmpv is not installed");
    file = folder.filePath("plain.mkv");
    QVERIFY(numbered::encode(file, {"-c:v", "libx264", "-crf", "1", "-g", "20"}));
}

void TestPlayer::init() {
    opened.clear();
    cancelled = 0;
    window = std::make_unique<QMainWindow>();
    dock = new PlayerDock(window.get());
    window->setCentralWidget(new QWidget);
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    auto* cancel = new QAction("Cancel", window.get());
    cancel->setShortcut(Qt::Key_Escape);
    connect(cancel, SIGNAL(triggered()), SLOT(noteCancel()));
    window->addAction(cancel);
    window->resize(800, 500);
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    dock->focusPicture();
}

void TestPlayer::cleanup() {
    window.reset();
    QTRY_VERIFY(!PlayerDock::isAnyAbandoned());
}

/// In a program of its own: the library stays once it is there.
void TestPlayer::nothingIsLoadedBeforeAClip() {
    QCOMPARE(wordsIn(QProcessEnvironment::systemEnvironment(), {}), QByteArray("not loaded\n"));
    QVERIFY(dock->pictureRectangle().isEmpty());
    QVERIFY(!part<QSlider>("sliderPosition").isEnabled());
    QVERIFY(part<QPushButton>("buttonOpenOutside").isHidden());
}

void TestPlayer::firstPictureIsShown() {
    dock->setClip(clip(0.8, 2.0), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    QVERIFY(!dock->isPlaying());
    QCOMPARE(dock->windowTitle(), QString("Player: plain.mkv #3"));
    QCOMPARE(dock->toggleViewAction()->text(), QString("Player"));
    QTRY_COMPARE(part<QLabel>("labelPosition").text(), QString("0:00:00 / 0:00:02"));
    QTest::qWait(200);
    QCOMPARE(number(), 20);
}

void TestPlayer::pictureFitsIn() {
    QSignalSpy moved(dock, SIGNAL(pictureMoved()));
    dock->setClip(clip(0.8, 2.0), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    QVERIFY(!moved.isEmpty());
    const auto fits = [this] {
        const QRect all = dock->picture()->rect();
        const QRect picture = dock->pictureRectangle();
        const bool isTouching =
            qAbs(picture.width() - all.width()) <= 1 || qAbs(picture.height() - all.height()) <= 1;
        return all.contains(picture) && isTouching &&
               qAbs(picture.width() * 3 - picture.height() * 4) <= 4; // 160 to 120
    };
    QVERIFY(fits());
    moved.clear();
    window->resize(500, 700);
    QTRY_VERIFY(!moved.isEmpty());
    QVERIFY(fits());
    QTRY_COMPARE(number(), 20);
}

void TestPlayer::stillIsShownBeforeAClip() {
    QSignalSpy moved(dock, SIGNAL(pictureMoved()));
    dock->setStill(media::grey(320, 240, 200));
    QCOMPARE(moved.count(), 1);
    QVERIFY(!dock->pictureRectangle().isEmpty());
    const QImage seen = dock->picture()->grab().toImage();
    QCOMPARE(qGray(seen.pixel(dock->pictureRectangle().center())), 200);
    // What is played comes in its place, and goes again.
    dock->setClip(clip(0.8, 2.0), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    dock->setClip({}, false);
    QCOMPARE(qGray(dock->picture()->grab().toImage().pixel(dock->pictureRectangle().center())),
             200);
}

void TestPlayer::keysPlay() {
    dock->setClip(clip(0.8, 2.8), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    key(Qt::Key_Period);
    QTRY_COMPARE(number(), 21);
    key(Qt::Key_Comma);
    QTRY_COMPARE(number(), 20);
    key(Qt::Key_Right);
    QTRY_COMPARE(number(), 45);
    key(Qt::Key_Left);
    QTRY_COMPARE(number(), 20);
    // The clip's start is as far as it goes.
    key(Qt::Key_Left);
    QTest::qWait(200);
    QCOMPARE(number(), 20);
    key(Qt::Key_Space);
    QTRY_VERIFY(dock->isPlaying());
    QTRY_VERIFY(number() > 22);
    key(Qt::Key_Space);
    QTRY_VERIFY(!dock->isPlaying());
}

void TestPlayer::keysAskForOtherClips() {
    QSignalSpy next(dock, SIGNAL(nextAsked()));
    QSignalSpy previous(dock, SIGNAL(previousAsked()));
    key(Qt::Key_N);
    key(Qt::Key_P);
    part<QToolButton>("buttonNextClip").click();
    part<QToolButton>("buttonPreviousClip").click();
    QCOMPARE(next.count(), 2);
    QCOMPARE(previous.count(), 2);
    QTest::keyClick(dock->picture(), Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(next.count(), 2);
    key(Qt::Key_Escape);
    QCOMPARE(cancelled, 1);
}

void TestPlayer::controlsCanBeReached() {
    dock->setClip(clip(0.8, 2.0), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    QStringList reached;
    for (int i = 0; i < 20; ++i) {
        const QWidget* focused = QApplication::focusWidget();
        QVERIFY(focused);
        reached.append(focused->objectName());
        QVERIFY2(!focused->accessibleName().isEmpty() || !dock->isAncestorOf(focused),
                 qPrintable(focused->objectName()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char* name :
         {"playerPicture", "sliderPosition", "buttonPlay", "buttonStepBack", "buttonStepForward",
          "buttonWhole", "comboBoxSpeed", "buttonMute", "buttonFullScreen"})
        QVERIFY2(reached.contains(name), name);
    // Who uses the mouse goes on with the keys of the player.
    QTest::mouseClick(&part<QToolButton>("buttonMute"), Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), dock->picture());
}

void TestPlayer::sliderGoesThroughTheClip() {
    auto& slider = part<QSlider>("sliderPosition");
    dock->setClip(clip(0.8, 2.0), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    QCOMPARE(slider.minimum(), 0);
    QCOMPARE(slider.maximum(), 1200);
    QCOMPARE(slider.value(), 0);
    slider.setValue(600);
    QTRY_COMPARE(number(), 35);
    key(Qt::Key_Space);
    QTRY_VERIFY(slider.value() > 700);
}

void TestPlayer::wholeRecordingIsOffered() {
    auto& slider = part<QSlider>("sliderPosition");
    auto& whole = part<QToolButton>("buttonWhole");
    dock->setClip(clip(0.8, 1.2), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    whole.click();
    QTRY_VERIFY(qAbs(slider.maximum() - 3000) < 50);
    QCOMPARE(slider.value(), 800);
    slider.setValue(2400);
    QTRY_COMPARE(number(), 60);
    whole.click();
    QTRY_COMPARE(number(), 20);
    QCOMPARE(slider.maximum(), 400);
}

void TestPlayer::speedAndSound() {
    auto& speed = part<QComboBox>("comboBoxSpeed");
    QCOMPARE(speed.currentData().toDouble(), 1.0);
    QCOMPARE(speed.itemData(0).toDouble(), 0.25);
    QCOMPARE(speed.itemData(speed.count() - 1).toDouble(), 16.0);
    speed.setCurrentIndex(0);
    part<QToolButton>("buttonMute").click();
    dock->setClip(clip(0.0, 3.0), true);
    QTRY_VERIFY_WITH_TIMEOUT(number() >= 2, longMilliseconds);
    QElapsedTimer timer;
    timer.start();
    const int before = number();
    QTest::qWait(1000);
    // A quarter of 25 pictures a second; a busy machine shows fewer.
    QVERIFY2(number() - before <= timer.elapsed() * 25 / 4000 + 2,
             qPrintable(QString::number(number() - before)));
}

void TestPlayer::muteHasAKey() {
    key(Qt::Key_M);
    QVERIFY(part<QToolButton>("buttonMute").isChecked());
    key(Qt::Key_M);
    QVERIFY(!part<QToolButton>("buttonMute").isChecked());
}

void TestPlayer::fullScreenIsLeftByEscape() {
    dock->setClip(clip(0.8, 2.0), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    key(Qt::Key_F11);
    QTRY_VERIFY(dock->picture()->window() != window.get());
    QWidget* full = dock->picture()->window();
    QVERIFY(full->isFullScreen());
    QVERIFY(QTest::qWaitForWindowActive(full));
    QTRY_COMPARE(number(), 20);
    key(Qt::Key_Period);
    QTRY_COMPARE(number(), 21);
    key(Qt::Key_Escape);
    QCOMPARE(dock->picture()->window(), window.get());
    QVERIFY(!full->isVisible());
    QCOMPARE(cancelled, 0);
    QTRY_COMPARE(number(), 21);
    key(Qt::Key_F);
    QCOMPARE(dock->picture()->window(), full);
    key(Qt::Key_F);
    QCOMPARE(dock->picture()->window(), window.get());
}

/// Others may have put something below it.
void TestPlayer::fullScreenComesBackToItsPlace() {
    auto* box = new QWidget;
    auto* below = new QLabel("below");
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(dock->widget());
    layout->addWidget(below);
    dock->setWidget(box);
    QCoreApplication::processEvents();
    const auto yOf = [this](const QWidget& widget) {
        return widget.mapTo(window.get(), QPoint()).y();
    };
    QVERIFY(yOf(*dock->picture()) < yOf(*below));
    key(Qt::Key_F);
    key(Qt::Key_F);
    QCoreApplication::processEvents();
    QVERIFY(yOf(*dock->picture()) < yOf(*below));
}

void TestPlayer::fullScreenIsLeftByClosing() {
    part<QToolButton>("buttonFullScreen").click();
    QWidget* full = dock->picture()->window();
    QVERIFY(full != window.get());
    full->close();
    QCOMPARE(dock->picture()->window(), window.get());
    QTRY_VERIFY(dock->picture()->isVisible());
}

void TestPlayer::failureIsToldAndAnotherProgramOffered() {
    const QString list = folder.filePath("list #1.mp4");
    QVERIFY(writeFile(list, "#EXTM3U\n" + file.toUtf8() + '\n'));
    auto& outside = part<QPushButton>("buttonOpenOutside");
    dock->setClip({list, "list", 0.0, 1.0, -1}, true);
    QTRY_VERIFY_WITH_TIMEOUT(outside.isVisible(), longMilliseconds);
    QVERIFY(dock->pictureRectangle().isEmpty());
    QVERIFY(!dock->isPlaying());
    QDesktopServices::setUrlHandler("file", this, "noteUrl");
    outside.click();
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(opened.size(), 1);
    QCOMPARE(QDir::cleanPath(opened[0].toLocalFile()), list);
    dock->setClip(clip(0.8, 2.0), false);
    QTRY_COMPARE_WITH_TIMEOUT(number(), 20, longMilliseconds);
    QVERIFY(!outside.isVisible());
}

void TestPlayer::hiddenDockLetsGo() {
    dock->setClip(clip(0.8, 2.0), true);
    QTRY_VERIFY_WITH_TIMEOUT(dock->isPlaying(), longMilliseconds);
    const auto isHeld = [this] {
        const QDir descriptors("/proc/self/fd");
        const QStringList names = descriptors.entryList(QDir::Files | QDir::System);
        return std::any_of(names.cbegin(), names.cend(), [&](const QString& name) {
            return QFile::symLinkTarget(descriptors.filePath(name)) == file;
        });
    };
    QVERIFY(isHeld());
    dock->hide();
    QVERIFY(!dock->isPlaying());
    QTRY_VERIFY(!isHeld());
}

void TestPlayer::noClipEmptiesIt() {
    dock->setClip(clip(0.8, 2.0), true);
    QTRY_VERIFY_WITH_TIMEOUT(dock->isPlaying(), longMilliseconds);
    dock->setClip({}, false);
    QVERIFY(dock->pictureRectangle().isEmpty());
    QVERIFY(!part<QSlider>("sliderPosition").isEnabled());
    QCOMPARE(dock->windowTitle(), QString("Player"));
}

void TestPlayer::twoPixelsToOne() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_SCALE_FACTOR", "2");
    QProcess test;
    test.setProcessEnvironment(environment);
    test.start(QCoreApplication::applicationFilePath(), {"pictureFitsIn", "keysPlay"});
    QVERIFY(test.waitForFinished(4 * longMilliseconds));
    QVERIFY2(test.exitCode() == 0, test.readAllStandardOutput().constData());
}

void TestPlayer::withoutTheLibraryItSaysSo() {
    // The loader finds this one first.
    QTemporaryDir libraries;
    QVERIFY(writeFile(libraries.filePath("libmpv.so.2"), "no library"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_LIBRARY_PATH", libraries.path());
    QCOMPARE(wordsIn(environment, file).trimmed(),
             QByteArray("The library that plays recordings, libmpv 2, is not installed."));
}

void TestPlayer::withoutThreadsItSaysSo() {
    // None but the one of the platform, if it has any.
    const QProcessEnvironment environment = faults::noThreadsWhile(file);
    QCOMPARE(wordsIn(environment, file).trimmed(), QByteArray("There is no thread to play it on."));
}

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == "--show")
        return showAndTell(arguments.value(2));
    TestPlayer test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_player.moc"
