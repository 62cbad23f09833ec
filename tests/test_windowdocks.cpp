// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mainwindowdriver.h"

#include <QDockWidget>
#include <QSettings>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <memory>

/// The docks of the main window: their buttons and keys, and that they stay as a person left them.
class TestWindowDocks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void hiddenAtFirst();
    void nothingIsStoredWhereNothingWasShown();
    void keysAndButtons_data();
    void keysAndButtons();
    void checkedButtonIsSeen();
    void keyboardGoesWhereItIsLookedFor();
    void buttonTellsOfTheRecordings();
    void layoutIsRemembered();
    void layoutIsStoredSoon();
    void foreignLayoutsAreIgnored_data();
    void foreignLayoutsAreIgnored();
    void pictureHasTheLargerShare();
    void sharesAreRemembered();
    void everythingFitsASmallScreen();

private:
    static QDockWidget& dock(MainWindowDriver& driver, const char* name) {
        return driver.part<QDockWidget>(name);
    }

    QTemporaryDir folder;
};

static const QVector<const char*> docks = {"dockRecordings", "dockMotion", "dockPlayer"};

void TestWindowDocks::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
}

void TestWindowDocks::init() {
    QSettings().clear();
}

void TestWindowDocks::hiddenAtFirst() {
    MainWindowDriver driver;
    driver.window.show();
    for (const char* name : docks)
        QVERIFY2(dock(driver, name).isHidden(), name);
    QCOMPARE(driver.window.size(), QSize(1121, 662));
}

void TestWindowDocks::nothingIsStoredWhereNothingWasShown() {
    {
        MainWindowDriver driver;
        driver.window.show();
    }
    QVERIFY(!QSettings().contains("window_state"));
}

void TestWindowDocks::keysAndButtons_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("key");
    QTest::newRow("recordings") << "dockRecordings"
                                << "buttonRecordings" << int(Qt::Key_F7);
    QTest::newRow("motion") << "dockMotion"
                            << "buttonMotion" << int(Qt::Key_F8);
    QTest::newRow("player") << "dockPlayer"
                            << "buttonPlayer" << int(Qt::Key_F9);
}

void TestWindowDocks::keysAndButtons() {
    QFETCH(QString, name);
    QFETCH(QString, button);
    QFETCH(int, key);
    MainWindowDriver driver;
    driver.window.show();
    driver.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&driver.window));
    auto& shown = dock(driver, qPrintable(name));
    auto& tool = driver.part<QToolButton>(qPrintable(button));
    QTest::keyClick(&driver.window, Qt::Key(key));
    QVERIFY(shown.isVisible());
    QVERIFY(tool.isChecked());
    QTest::keyClick(&driver.window, Qt::Key(key));
    QVERIFY(!shown.isVisible());
    tool.click();
    QVERIFY(shown.isVisible());
    shown.close();
    QVERIFY(!tool.isChecked());
    QVERIFY(tool.toolTip().contains(QKeySequence(key).toString()));
}

/// In any palette.
void TestWindowDocks::checkedButtonIsSeen() {
    MainWindowDriver driver;
    QPalette palette;
    palette.setColor(QPalette::Highlight, Qt::red);
    auto& tool = driver.part<QToolButton>("buttonMotion");
    tool.setPalette(palette);
    driver.window.show();
    const auto isMarked = [&tool] {
        const QImage seen = tool.grab().toImage();
        return seen.pixelColor(seen.width() / 2, seen.height() - 5) == QColor(Qt::red);
    };
    QVERIFY(!isMarked());
    tool.click();
    QVERIFY(isMarked());
    tool.click();
    QVERIFY(!isMarked());
}

void TestWindowDocks::keyboardGoesWhereItIsLookedFor() {
    MainWindowDriver driver;
    driver.window.show();
    driver.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&driver.window));
    QTest::keyClick(&driver.window, Qt::Key_F7);
    QVERIFY(driver.part<QWidget>("recordings").hasFocus());
    QTest::keyClick(&driver.window, Qt::Key_F7);
    QVERIFY(driver.list().hasFocus());
}

void TestWindowDocks::buttonTellsOfTheRecordings() {
    MainWindowDriver driver;
    driver.window.show();
    const auto& tool = driver.part<QToolButton>("buttonRecordings");
    QCOMPARE(tool.text(), QString("Recordings"));
    Video* job = new Video(folder.filePath("missing.mp4"), folder.path(), 1.0, 1.0, 5.0, 0, false,
                           nullptr, nullptr, false, QDateTime());
    driver.accept(job);
    QCOMPARE(tool.text(), QString("Recordings: 1"));
    QTRY_COMPARE(tool.text(), QString("Recordings: 1, 1 unreadable"));
    tool.defaultAction()->trigger();
    QCOMPARE(tool.text(), QString("Recordings: 1, 1 unreadable"));
    QCOMPARE(tool.defaultAction()->text(), QString("Recordings"));
}

void TestWindowDocks::layoutIsRemembered() {
    {
        MainWindowDriver driver;
        driver.window.show();
        driver.window.addDockWidget(Qt::LeftDockWidgetArea, &dock(driver, "dockRecordings"));
        dock(driver, "dockRecordings").show();
    }
    MainWindowDriver driver;
    driver.window.show();
    QVERIFY(dock(driver, "dockRecordings").isVisible());
    QCOMPARE(driver.window.dockWidgetArea(&dock(driver, "dockRecordings")), Qt::LeftDockWidgetArea);
    QVERIFY(!dock(driver, "dockMotion").isVisible());
    QCOMPARE(driver.window.size(), QSize(1121, 662));
}

/// A crash must not bring back what was closed.
void TestWindowDocks::layoutIsStoredSoon() {
    MainWindowDriver driver;
    driver.window.show();
    driver.part<QToolButton>("buttonRecordings").click();
    QTRY_VERIFY(QSettings().contains("window_state"));
}

void TestWindowDocks::foreignLayoutsAreIgnored_data() {
    QTest::addColumn<QByteArray>("stored");
    QMainWindow other;
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("garbage") << QByteArray(1000, '\xff');
    QTest::newRow("another version") << other.saveState(4711);
    QTest::newRow("cut off") << other.saveState(1).left(9);
}

void TestWindowDocks::foreignLayoutsAreIgnored() {
    QFETCH(QByteArray, stored);
    QSettings().setValue("window_state", stored);
    MainWindowDriver driver;
    driver.window.show();
    for (const char* name : docks)
        QVERIFY2(dock(driver, name).isHidden(), name);
    driver.part<QToolButton>("buttonRecordings").click();
    QVERIFY(dock(driver, "dockRecordings").isVisible());
}

/// In whatever order they are shown.
void TestWindowDocks::pictureHasTheLargerShare() {
    for (const auto& keys : {QVector<Qt::Key>{Qt::Key_F7, Qt::Key_F8, Qt::Key_F9},
                             QVector<Qt::Key>{Qt::Key_F9, Qt::Key_F8, Qt::Key_F7}}) {
        QSettings().clear();
        MainWindowDriver driver;
        driver.window.show();
        driver.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&driver.window));
        for (const Qt::Key key : keys)
            QTest::keyClick(&driver.window, key);
        QCoreApplication::processEvents();
        const int rows = driver.part<QWidget>("recordings").height();
        const int picture = driver.part<QWidget>("playerPicture").height();
        QVERIFY2(picture > 1.5 * rows && picture > 200 && rows > 80,
                 qPrintable(QString("%1 %2").arg(rows).arg(picture)));
    }
}

/// What was shared out by hand stays so.
void TestWindowDocks::sharesAreRemembered() {
    int height = 0;
    {
        MainWindowDriver driver;
        driver.window.show();
        driver.part<QToolButton>("buttonRecordings").click();
        driver.part<QToolButton>("buttonPlayer").click();
        QCoreApplication::processEvents();
        const int first = dock(driver, "dockRecordings").height();
        driver.window.resizeDocks({&dock(driver, "dockRecordings")}, {300}, Qt::Vertical);
        QCoreApplication::processEvents();
        height = dock(driver, "dockRecordings").height();
        QVERIFY2(height > first, qPrintable(QString::number(height)));
    }
    MainWindowDriver driver;
    driver.window.show();
    driver.part<QToolButton>("buttonMotion").click();
    QCoreApplication::processEvents();
    QCOMPARE(dock(driver, "dockRecordings").height(), height);
}

void TestWindowDocks::everythingFitsASmallScreen() {
    MainWindowDriver driver;
    driver.window.show();
    for (const char* name : docks)
        dock(driver, name).show();
    driver.window.resize(1024, 600);
    QCOMPARE(driver.window.size(), QSize(1024, 600));
    QTest::qWait(100); // until all have their places
    for (const char* name : docks) {
        const QWidget& shown = dock(driver, name);
        QVERIFY2(driver.window.rect().contains(shown.geometry()), name);
        QVERIFY2(shown.height() >= shown.minimumSizeHint().height(), name);
    }
    auto* bar = driver.window.statusBar();
    const QString message = MainWindow::tr("%1 clips queued to export...").arg(5000);
    bar->showMessage(message);
    driver.part<QToolButton>("buttonRecordings")
        .defaultAction()
        ->setIconText("Recordings: 500, 60 unreadable");
    QCoreApplication::processEvents();
    int left = bar->width();
    for (const char* button : {"buttonRecordings", "buttonMotion", "buttonPlayer"})
        left = qMin(left, driver.part<QToolButton>(button).x());
    QVERIFY2(bar->fontMetrics().horizontalAdvance(message) + 10 < left,
             qPrintable(QString::number(left)));
}

QTEST_MAIN(TestWindowDocks)
#include "test_windowdocks.moc"
