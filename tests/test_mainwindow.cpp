// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mainwindowdriver.h"
#include "media.h"
#include "settingsdialog.h"

#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMetaMethod>
#include <QMimeData>
#include <QProgressBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class TestMainWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void form();
    void clipList();
    void actions_data();
    void actions();
    void heldReturnIsPressedOnce();
    void fileMenu();
    void slotsInTheirOrder();
    void nothingToDoAtStart();
    void emptyListSaysWhatToDo();
    void droppedFilesAreSetUp();
    void droppedTextIsRefused();

    void settings();
    void about();
    void helpOpensTheManual();
    void helpWithoutAViewer();
    void helpIsNowhere();
    void quit();
    void closingLeavesTheSetupWindow();
    void leavingTheSetupWindowEndsTheProgram();
    void acceptedJobShowsTheClosedWindowAgain();
    void closingBothWindowsEndsTheProgramDuringAJob();

public Q_SLOTS:
    void noteUrl(const QUrl& url) { openedUrl = url; }

private:
    QUrl openedUrl;
};

void TestMainWindow::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
}

void TestMainWindow::init() {
    QSettings().clear();
    openedUrl.clear();
}

void TestMainWindow::form() {
    MainWindowDriver driver;
    QCOMPARE(driver.window.objectName(), QString("MainWindow"));
    QCOMPARE(driver.window.windowTitle(), QString("Kestrova"));
    QCOMPARE(driver.window.size(), QSize(1121, 662));
    QVERIFY(!driver.window.windowIcon().isNull());
    QCOMPARE(driver.part<QPushButton>("pushButtonAddFiles").text(), QString("&Add file(s)"));
    QCOMPARE(driver.part<QPushButton>("pushButtonDirrectory").text(), QString("Add &directory"));
    QCOMPARE(driver.part<QPushButton>("pushButtonCancel").text(), QString("&Cancel"));
    for (const char* name : {"pushButtonAddFiles", "pushButtonDirrectory", "pushButtonCancel"})
        QVERIFY(driver.part<QPushButton>(name).autoDefault());
    QCOMPARE(driver.part<QProgressBar>("progressBar").minimumWidth(), 200);
    QCOMPARE(driver.part<QProgressBar>("progressBar").value(), 24);
    auto& grid = *qobject_cast<QGridLayout*>(driver.part<QWidget>("centralWidget").layout());
    QCOMPARE(grid.contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(grid.horizontalSpacing(), 6);
    QCOMPARE(driver.part<QWidget>("widget").layout()->contentsMargins(), QMargins(0, 0, 0, 0));
}

void TestMainWindow::clipList() {
    MainWindowDriver driver;
    const QListWidget& list = driver.list();
    QCOMPARE(list.selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(list.iconSize(), QSize(320, 320));
    QCOMPARE(list.viewMode(), QListView::IconMode);
    QCOMPARE(list.movement(), QListView::Static);
    QCOMPARE(list.spacing(), 20);
    QVERIFY(list.wordWrap());
    QVERIFY(list.isSelectionRectVisible());
    QCOMPARE(list.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(list.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(list.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(list.minimumSize(), QSize(0, 0));
    QCOMPARE(list.maximumSize(), QSize(16777215, 16777215));
}

void TestMainWindow::actions_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shortcut");
    QTest::newRow("actionAddFiles") << "Add file(s)"
                                    << "Ctrl+O";
    QTest::newRow("actionAddDirectory") << "Add &directory"
                                        << "Ctrl+Shift+O";
    QTest::newRow("actionOpen_selected") << "Open selected"
                                         << "Return";
    QTest::newRow("actionExport_selected") << "Export selected"
                                           << "Ctrl+E";
    QTest::newRow("actionCancel") << "Cancel"
                                  << "Esc";
    QTest::newRow("actionRemoveSelected") << "Remove selected"
                                          << "Del";
    QTest::newRow("actionRemoveAll") << "Remove all"
                                     << "Ctrl+Del";
    QTest::newRow("actionQuit") << "Quit"
                                << "Ctrl+Q";
    QTest::newRow("actionSettings") << "Settings"
                                    << "Ctrl+P";
    QTest::newRow("actionAbout") << "About"
                                 << "";
    QTest::newRow("actionHelp") << "Help"
                                << "F1";
}

void TestMainWindow::actions() {
    QFETCH(QString, text);
    QFETCH(QString, shortcut);
    MainWindowDriver driver;
    const QAction& action = driver.action(QTest::currentDataTag());
    QCOMPARE(action.text(), text);
    QCOMPARE(action.shortcut(), QKeySequence(shortcut));
    // A key that is held down must not open a clip again and again.
    QCOMPARE(action.autoRepeat(), action.objectName() != "actionOpen_selected");
}

void TestMainWindow::heldReturnIsPressedOnce() {
    // As it comes where the repetition is not recognized: released and pressed in one instant.
    MainWindowDriver driver;
    const auto isKeptFromShortcuts = [&driver](Qt::Key key, ulong released, ulong pressed) {
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        release.setTimestamp(released);
        QApplication::sendEvent(&driver.list(), &release);
        QKeyEvent press(QEvent::ShortcutOverride, key, Qt::NoModifier);
        press.setTimestamp(pressed);
        press.ignore();
        QApplication::sendEvent(&driver.list(), &press);
        return press.isAccepted();
    };
    QVERIFY(isKeptFromShortcuts(Qt::Key_Return, 1000, 1000));
    QVERIFY(!isKeptFromShortcuts(Qt::Key_Return, 2000, 2050));
    QVERIFY(!isKeptFromShortcuts(Qt::Key_Delete, 3000, 3000));
}

void TestMainWindow::fileMenu() {
    MainWindowDriver driver;
    QStringList entries;
    for (const QAction* action : driver.part<QMenu>("menuFile").actions())
        entries.append(action->isSeparator() ? "-" : action->objectName());
    QCOMPARE(entries,
             QStringList({"actionAddFiles", "actionAddDirectory", "-", "actionOpen_selected",
                          "actionExport_selected", "-", "actionCancel", "-", "actionRemoveSelected",
                          "actionRemoveAll", "-", "actionQuit"}));
    QCOMPARE(driver.part<QMenu>("menuFile").title(), QString("&File"));
    QCOMPARE(driver.part<QMenu>("menuTools").title(), QString("&Tools"));
    QCOMPARE(driver.part<QMenu>("menu_Help").title(), QString("&Help"));
    QVERIFY(driver.part<QMenu>("menuTools").actions() ==
            QList<QAction*>({&driver.action("actionSettings")}));
    QVERIFY(driver.part<QMenu>("menu_Help").actions() ==
            QList<QAction*>({&driver.action("actionAbout")}));
}

void TestMainWindow::slotsInTheirOrder() {
    const QMetaObject& meta = MainWindow::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names.append(meta.method(i).methodSignature());
    QCOMPARE(names, QStringList({"newVideo()",
                                 "newClip(int,QImage,double,double,double)",
                                 "processQueue()",
                                 "updateStatus()",
                                 "on_actionQuit_triggered()",
                                 "on_actionAddFiles_triggered()",
                                 "on_actionAddDirectory_triggered()",
                                 "on_files_clicked(QModelIndex)",
                                 "on_files_itemSelectionChanged()",
                                 "on_files_activated(QModelIndex)",
                                 "on_actionRemoveSelected_triggered()",
                                 "on_actionRemoveAll_triggered()",
                                 "on_actionSettings_triggered()",
                                 "on_pushButtonAddFiles_clicked()",
                                 "on_pushButtonDirrectory_clicked()",
                                 "on_actionHelp_triggered()",
                                 "on_actionAbout_triggered()",
                                 "on_files_itemDoubleClicked(QListWidgetItem*)",
                                 "on_pushButtonCancel_clicked()",
                                 "on_actionCancel_triggered()",
                                 "on_actionExport_selected_triggered()",
                                 "on_actionOpen_selected_triggered()"}));
}

void TestMainWindow::nothingToDoAtStart() {
    MainWindowDriver driver;
    driver.window.show();
    QVERIFY(!driver.setup.isVisible());
    QVERIFY(!driver.part<QProgressBar>("progressBar").isVisible());
    QVERIFY(!driver.part<QPushButton>("pushButtonCancel").isVisible());
    for (const char* name : {"actionCancel", "actionOpen_selected", "actionExport_selected",
                             "actionRemoveSelected", "actionRemoveAll"})
        QVERIFY2(!driver.action(name).isEnabled(), name);
    QVERIFY(driver.part<QStatusBar>("statusBar").currentMessage().isEmpty());
}

void TestMainWindow::emptyListSaysWhatToDo() {
    MainWindowDriver driver;
    driver.window.show();
    QListWidget& list = driver.list();
    const QImage hint = list.viewport()->grab().toImage();
    const QRgb background = list.palette().color(QPalette::Base).rgb();
    const auto isBlank = [background](const QImage& image) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != background)
                    return false;
            }
        }
        return true;
    };
    QVERIFY(!isBlank(hint));
    QVERIFY(isBlank(hint.copy(0, 0, hint.width(), hint.height() / 4))); // it stands in the middle
    list.addItem(QString());
    list.item(0)->setHidden(true);
    QVERIFY(isBlank(list.viewport()->grab().toImage()));
    delete list.takeItem(0); // the window takes every item for a clip
}

void TestMainWindow::droppedFilesAreSetUp() {
    QTemporaryDir folder;
    const QString video = folder.filePath("garden.mkv");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=d=1", "-c:v", "ffv1", video}));
    MainWindowDriver driver;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(video)});
    QDragEnterEvent enter(QPoint(50, 200), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(&driver.window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPoint(50, 200), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(&driver.window, &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(drop.dropAction(), Qt::CopyAction); // never moved away
    QVERIFY(!driver.setup.isVisible());          // the other program is not kept waiting
    QTRY_VERIFY(driver.setup.isVisible());
    QCOMPARE(driver.setupPart<QLabel>("labelInfo").text(), video);
}

void TestMainWindow::droppedTextIsRefused() {
    MainWindowDriver driver;
    QMimeData data;
    data.setText("garden.mkv");
    QDragEnterEvent enter(QPoint(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&driver.window, &enter);
    QVERIFY(!enter.isAccepted());
}

void TestMainWindow::settings() {
    MainWindowDriver driver;
    DialogAnswer<SettingsDialog> answer([](SettingsDialog& dialog) {
        QVERIFY(!dialog.parent());
        dialog.findChild<QCheckBox*>("checkBoxTranscoding")->setChecked(true);
        dialog.accept();
    });
    driver.trigger("actionSettings");
    QVERIFY(answer.wasShown());
}

void TestMainWindow::about() {
    MainWindowDriver driver;
    QString title;
    QString text;
    DialogAnswer<QMessageBox> answer([&](QMessageBox& box) {
        title = box.windowTitle();
        text = box.text();
        QVERIFY(box.parent() == &driver.window);
        box.accept();
    });
    driver.trigger("actionAbout");
    QCOMPARE(title, QString("About Kestrova"));
    QCOMPARE(text.count("<p>"), 2);
    QVERIFY(text.section("<p>", 1, 1).contains("Kestrova"));
    const QString credits = text.section("<p>", 2, 2);
    QVERIFY(credits.startsWith("Credits:"));
    for (const char* label : {">FFmpeg</a>", ">OpenCV</a>", ">Qt</a>"})
        QVERIFY2(credits.contains(label), label);
    QCOMPARE(credits.count("<a href=\"https://"), 3);
    QVERIFY(!text.contains(QRegularExpression("\\d+\\.\\d+")));
}

void TestMainWindow::helpOpensTheManual() {
    MainWindowDriver driver;
    QDesktopServices::setUrlHandler("file", this, "noteUrl");
    driver.trigger("actionHelp");
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(openedUrl.toString(),
             "file:///" + QCoreApplication::applicationDirPath() + "/help/manual.pdf");
}

void TestMainWindow::helpWithoutAViewer() {
    MainWindowDriver driver;
    QString title;
    QString text;
    DialogAnswer<QMessageBox> answer([&](QMessageBox& box) {
        title = box.windowTitle();
        text = box.text();
        QCOMPARE(box.standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
        QCOMPARE(box.icon(), QMessageBox::Critical);
        QVERIFY(box.parent() == &driver.window);
        box.accept();
    });
    const QString warning = "This plugin does not support QPlatformServices::openDocument() for "
                            "'file:///%1/help/manual.pdf'.";
    QTest::ignoreMessage(QtWarningMsg,
                         qPrintable(warning.arg(QCoreApplication::applicationDirPath())));
    driver.trigger("actionHelp");
    QCOMPARE(title, QString("Error"));
    QCOMPARE(text, QString("Can't open manual.pdf"));
}

void TestMainWindow::helpIsNowhere() {
    MainWindowDriver driver;
    QVERIFY(driver.action("actionHelp").associatedWidgets().isEmpty());
    QDesktopServices::setUrlHandler("file", this, "noteUrl");
    driver.window.show();
    QVERIFY(QTest::qWaitForWindowActive(&driver.window));
    QTest::keyClick(&driver.window, Qt::Key_F1);
    QCoreApplication::processEvents();
    QDesktopServices::unsetUrlHandler("file");
    QVERIFY(openedUrl.isEmpty());
}

void TestMainWindow::quit() {
    MainWindowDriver driver;
    QTimer::singleShot(0, &driver.action("actionQuit"), SLOT(trigger()));
    QTimer::singleShot(10000, &driver.window, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
}

void TestMainWindow::closingLeavesTheSetupWindow() {
    MainWindowDriver driver;
    QSignalSpy lastClosed(qApp, SIGNAL(lastWindowClosed()));
    driver.window.show();
    driver.setup.show();
    QTimer::singleShot(0, &driver.window, [&] {
        QVERIFY(driver.window.close());
        QVERIFY(!driver.window.isVisible());
        QVERIFY(driver.setup.isVisible());
        QCOMPARE(lastClosed.size(), 0);
        QVERIFY(driver.setup.close());
    });
    QTimer::singleShot(10000, &driver.window, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
    QCOMPARE(lastClosed.size(), 1);
}

void TestMainWindow::leavingTheSetupWindowEndsTheProgram() {
    MainWindowDriver driver;
    driver.window.show();
    driver.setup.show();
    QTimer::singleShot(0, &driver.window, [&] {
        QVERIFY(driver.window.close());
        QTest::keyClick(&driver.setup, Qt::Key_Escape);
        QVERIFY(!driver.setup.isVisible());
    });
    QTimer::singleShot(10000, &driver.window, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
}

void TestMainWindow::acceptedJobShowsTheClosedWindowAgain() {
    const QTemporaryDir folder;
    const QString video = folder.filePath("long.mp4");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=640x360:d=60", "-c:v", "libx264",
                           "-preset", "ultrafast", video}));
    MainWindowDriver driver;
    driver.window.show();
    driver.setup.addFile(video);
    QVERIFY(driver.setup.isVisible());
    QVERIFY(driver.window.close());
    driver.setupPart<QLineEdit>("lineEditDir").setText(folder.path());
    driver.clickSetup("pushButtonAdd");
    QVERIFY(!driver.setup.isVisible());
    QTRY_VERIFY(driver.window.isVisible());
}

void TestMainWindow::closingBothWindowsEndsTheProgramDuringAJob() {
    const QTemporaryDir folder;
    const QString video = folder.filePath("long.mp4");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=640x360:d=60", "-c:v", "libx264",
                           "-preset", "ultrafast", video}));
    MainWindowDriver driver;
    driver.window.show();
    auto* job = new Video(video, folder.path(), 1.0, 1.0, 5.0, 0, false, nullptr, nullptr, false,
                          QDateTime());
    driver.accept(job);
    driver.setup.addFile(video);
    QTimer::singleShot(0, &driver.window, [&] {
        QVERIFY(driver.window.close());
        QVERIFY(int(job->state) < int(Video::CancelRequested));
        QVERIFY(driver.setup.close());
    });
    QTimer::singleShot(10000, &driver.window, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
    QCoreApplication::processEvents();
    QVERIFY(!driver.window.isVisible());
}

QTEST_MAIN(TestMainWindow)
#include "test_mainwindow.moc"
