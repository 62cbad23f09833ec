// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What only an X server with a window manager can show. Run by scripts/test-x11, on a large screen
// and on low and narrow ones.

#include "encoderstand.h"
#include "footage.h"
#include "mainwindowdriver.h"
#include "media.h"
#include "process.h"
#include "widgeteditor.h"

#include <QDateTimeEdit>
#include <QDesktopServices>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int longMilliseconds = 30000;

QByteArray runTool(const char* name, const QStringList& arguments) {
    const QString path = QStandardPaths::findExecutable(name);
    const ProcessResult result = runProgram(path, arguments);
    if (result.status != 0)
        qWarning("%s: status %d", name, result.status);
    return result.output;
}

/// Real keys and buttons, as the window system delivers them.
void input(const QStringList& arguments) {
    runTool("xdotool", arguments);
}

void movePointer(const QPoint& place) {
    input({"mousemove", QString::number(place.x()), QString::number(place.y())});
}

/// The topmost window that the window manager knows.
WId frontWindow() {
    const QByteArray answer = runTool("xprop", {"-root", "_NET_CLIENT_LIST_STACKING"});
    const QByteArray last = answer.mid(answer.lastIndexOf("0x")).trimmed();
    return last.toULongLong(nullptr, 16);
}

bool isInFront(const QWidget& window) {
    return window.isActiveWindow() && frontWindow() == window.winId();
}

/// Counts what reaches the program of one kind of event.
class EventCount : public QObject {
public:
    explicit EventCount(std::function<bool(QEvent&)> isCounted)
        : isCounted(std::move(isCounted)) {
        qApp->installEventFilter(this);
    }

    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (isCounted(*event))
            ++count;
        return false;
    }

private:
    std::function<bool(QEvent&)> isCounted;
};

bool isRepeatedReturn(QEvent& event) {
    if (event.type() != QEvent::ShortcutOverride) // also of keys that go no further
        return false;
    const auto& key = static_cast<QKeyEvent&>(event);
    return key.isAutoRepeat() && key.key() == Qt::Key_Return;
}

} // namespace

class TestX11 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void setupIsInFrontAtTheStart();
    void addedFilesBringSetupToTheFront_data();
    void addedFilesBringSetupToTheFront();
    void buttonsAreOnTheScreen();
    void progressIsOnTheScreen();
    void chosenSizesStay_data();
    void chosenSizesStay();
    void startTimeIsTyped_data();
    void startTimeIsTyped();
    void firstArrowSelectsTheFirstClip();
    void nextFileAfterAnInterruptedDrag();
    void heldReturnOpensOnce();
    void doubleClickOfTheLeftButtonOpens();
    void closedByTheWindowManagerTheProgramEnds();
    void keyboardAloneIsEnough();

public Q_SLOTS:
    void noteOpened(const QUrl& url) { opened.append(QDir::cleanPath(url.toLocalFile())); }

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    void showClip();
    void chooseWithKeys(const QString& file);

    QTemporaryDir folder;
    QStringList opened; ///< files that the desktop was asked to open
    std::unique_ptr<MainWindowDriver> driver;
};

void TestX11::initTestCase() {
    QCOMPARE(QGuiApplication::platformName(), QString("xcb"));
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    for (const int grey : {60, 200}) {
        const QImage picture = media::grey(640, 360, grey);
        QVERIFY(media::encodeGrey(path(QString("%1.avi").arg(grey)), {picture, picture}, 5,
                                  {"-c:v", "mjpeg"}));
    }
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=640x360:d=600", "-c:v", "libx264",
                           "-preset", "ultrafast", path("long.mp4")}));
}

void TestX11::init() {
    QSettings().clear();
    QSettings().setValue("export_dir", folder.path());
    driver = std::make_unique<MainWindowDriver>();
}

void TestX11::cleanup() {
    input({"mouseup", "1", "keyup", "Return"}); // also where a test has ended early
    driver.reset();
}

/// Lists a clip of a job that has failed, selected.
void TestX11::showClip() {
    auto* job = new Video("missing.mp4", folder.path(), 1.0, 1.0, 1.0, 0, false, nullptr, nullptr,
                          false, QDateTime());
    driver->accept(job);
    QTRY_COMPARE_WITH_TIMEOUT(int(job->state), int(Video::Failed), longMilliseconds);
    QImage snapshot(320, 240, QImage::Format_RGB32);
    snapshot.fill(Qt::green);
    Q_EMIT job->newClip(0, snapshot, 1.0, 2.0, 1.5);
    driver->window.show();
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->window), longMilliseconds);
    QCOMPARE(driver->list().count(), 1);
    driver->list().setFocus();
    driver->list().selectAll();
}

void TestX11::setupIsInFrontAtTheStart() {
    // As with a file on the command line: job setup has it before the main window is shown.
    driver->setup.addFile(path("60.avi"));
    driver->window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&driver->window));
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->setup), longMilliseconds);
    QVERIFY(driver->setupPart<QPushButton>("pushButtonAdd").hasFocus());
}

void TestX11::addedFilesBringSetupToTheFront_data() {
    QTest::addColumn<bool>("isMinimised");
    QTest::newRow("behind the main window") << false;
    QTest::newRow("minimised") << true;
}

void TestX11::addedFilesBringSetupToTheFront() {
    QFETCH(bool, isMinimised);
    driver->setup.addFile(path("60.avi"));
    driver->window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&driver->setup, longMilliseconds));
    if (isMinimised)
        driver->setup.showMinimized();
    input({"windowactivate", "--sync", QString::number(driver->window.winId())});
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->window), longMilliseconds);
    driver->setup.addFile(path("200.avi"));
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->setup), longMilliseconds);
    QVERIFY(!driver->setup.isMinimized());
    QCOMPARE(driver->setupPart<QLabel>("labelInfo").text(), path("200.avi"));
}

void TestX11::buttonsAreOnTheScreen() {
    driver->setup.addFile(path("60.avi"));
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->setup), longMilliseconds);
    const QRect available = driver->setup.screen()->availableGeometry();
    if (available.height() >= 900 && available.width() >= 1100)
        QCOMPARE(driver->setup.minimumSize(), QSize(1000, 800));
    QTRY_VERIFY_WITH_TIMEOUT(available.contains(driver->setup.frameGeometry()), longMilliseconds);
    for (const char* name : {"pushButtonAdd", "pushButtonCancelAll"}) {
        const auto& button = driver->setupPart<QPushButton>(name);
        QVERIFY2(driver->setup.rect().contains(button.geometry()), name);
    }
    const auto& editor = driver->setupPart<WidgetEditor>("maskEditor");
    QVERIFY(editor.width() >= 200 && editor.height() >= 200);
}

void TestX11::progressIsOnTheScreen() {
    driver->window.show();
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->window), longMilliseconds);
    driver->accept(new Video(path("long.mp4"), folder.path(), 1.0, 1.0, 5.0, 0, false, nullptr,
                             nullptr, false, QDateTime()));
    const QRect available = driver->window.screen()->availableGeometry();
    if (available.height() >= 768 && available.width() >= 1200)
        QCOMPARE(driver->window.size(), QSize(1121, 662));
    QTRY_VERIFY_WITH_TIMEOUT(available.contains(driver->window.frameGeometry()), longMilliseconds);
    const auto& cancel = driver->part<QPushButton>("pushButtonCancel");
    QTRY_VERIFY_WITH_TIMEOUT(cancel.isVisible(), longMilliseconds);
    QVERIFY(available.contains(QRect(cancel.mapToGlobal(QPoint()), cancel.size())));
}

void TestX11::chosenSizesStay_data() {
    QTest::addColumn<bool>("isSetup");
    QTest::newRow("main window") << false;
    QTest::newRow("job setup") << true;
}

/// A person may want a window that is larger than a screen: there can be several side by side.
void TestX11::chosenSizesStay() {
    QFETCH(bool, isSetup);
    driver->window.show();
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->window), longMilliseconds);
    driver->setup.addFile(path("60.avi"));
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->setup), longMilliseconds);
    QWidget& chosen = isSetup ? static_cast<QWidget&>(driver->setup) : driver->window;
    QWidget& other = isSetup ? static_cast<QWidget&>(driver->window) : driver->setup;
    const auto activate = [](QWidget& window) {
        input({"windowactivate", "--sync", QString::number(window.winId())});
        return QTest::qWaitFor([&window] { return window.isActiveWindow(); }, longMilliseconds);
    };
    QVERIFY(activate(chosen));
    const QSize size(chosen.screen()->size().width() + 200, chosen.height());
    chosen.resize(size);
    QVERIFY(activate(other));
    QVERIFY(activate(chosen));
    if (isSetup)
        driver->setup.addFile(path("200.avi"));
    QTest::qWait(500);
    QCOMPARE(chosen.size(), size);
}

void TestX11::startTimeIsTyped_data() {
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << "M/d/yyyy h:mm:ss AP"
                             << "12/3/2025 4:05:06 PM";
    QTest::newRow("German") << "dd.MM.yyyy HH:mm:ss"
                            << "03.12.2025 16:05:06";
    QTest::newRow("French, Spanish") << "dd/MM/yyyy HH:mm:ss"
                                     << "3/12/2025 16:05:06";
}

void TestX11::startTimeIsTyped() {
    QFETCH(QString, format);
    QFETCH(QString, text);
    driver->setup.addFile(path("60.avi"));
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->setup), longMilliseconds);
    auto& box = driver->setupPart<QCheckBox>("checkBoxExportTimestamp");
    box.click();
    auto& edit = driver->setupPart<QDateTimeEdit>("dateTimeEdit");
    edit.setDisplayFormat(format);
    edit.setFocus();
    input({"key", "ctrl+a"});
    input({"type", "--delay", "30", text});
    input({"key", "Tab"});
    QTRY_VERIFY_WITH_TIMEOUT(driver->setupPart<QPushButton>("pushButtonAdd").hasFocus(),
                             longMilliseconds);
    QCOMPARE(edit.dateTime(), QDateTime(QDate(2025, 12, 3), QTime(16, 5, 6), Qt::UTC));
}

void TestX11::firstArrowSelectsTheFirstClip() {
    showClip();
    Q_EMIT driver->clip(0).video->newClip(1, driver->clip(0).snapshot, 3.0, 4.0, 3.5);
    driver->part<QPushButton>("pushButtonDirrectory").setFocus();
    driver->list().selectionModel()->clear();
    input({"key", "Tab", "Right"});
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().selectedItems().size(), 1, longMilliseconds);
    QVERIFY(driver->clip(0).isSelected());
    input({"key", "Right"});
    QTRY_VERIFY_WITH_TIMEOUT(driver->clip(1).isSelected(), longMilliseconds);
}

void TestX11::nextFileAfterAnInterruptedDrag() {
    driver->setup.addFile(path("60.avi"));
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->setup), longMilliseconds);
    auto& editor = driver->setupPart<WidgetEditor>("maskEditor");
    const QPoint centre = editor.mapToGlobal(editor.rect().center());
    movePointer(centre);
    input({"mousedown", "1"});
    movePointer(centre + QPoint(80, 60));
    QTRY_VERIFY_WITH_TIMEOUT(editor.hasRoi(), longMilliseconds);
    input({"key", "Escape"});
    QTRY_VERIFY_WITH_TIMEOUT(!driver->setup.isVisible(), longMilliseconds);
    driver->setup.addFile(path("200.avi"));
    QVERIFY(QTest::qWaitForWindowExposed(&driver->setup, longMilliseconds));
    movePointer(centre + QPoint(120, 90));
    input({"mouseup", "1"});
    movePointer(centre); // told to the window behind the release
    QTRY_COMPARE_WITH_TIMEOUT(QCursor::pos(), centre, longMilliseconds);
    QCoreApplication::processEvents();
    QVERIFY(!editor.hasRoi());
    const QImage shown = editor.grab().toImage();
    for (const QPoint& offset : {QPoint(0, 0), QPoint(80, 60), QPoint(40, 60)})
        QVERIFY(qAbs(qGray(shown.pixel(editor.rect().center() + offset)) - 200) < 10);
}

void TestX11::heldReturnOpensOnce() {
    showClip();
    auto& action = driver->action("actionOpen_selected");
    // What it does is not wanted here.
    QObject::disconnect(&action, nullptr, &driver->window, nullptr);
    const QSignalSpy opened(&action, SIGNAL(triggered()));
    const EventCount repeats(isRepeatedReturn);
    input({"keydown", "Return"});
    QTRY_VERIFY_WITH_TIMEOUT(repeats.count >= 5 || opened.count() >= 5, longMilliseconds);
    input({"keyup", "Return"});
    QCOMPARE(opened.count(), 1);
}

void TestX11::doubleClickOfTheLeftButtonOpens() {
    showClip();
    const QPoint centre = driver->list().visualItemRect(&driver->clip(0)).center();
    movePointer(driver->list().viewport()->mapToGlobal(centre));
    const EventCount doubleClicks(
        [](QEvent& event) { return event.type() == QEvent::MouseButtonDblClick; });
    input({"click", "--repeat", "2", "--delay", "30", "3"});
    QTRY_VERIFY_WITH_TIMEOUT(doubleClicks.count > 0, longMilliseconds);
    QCoreApplication::processEvents();
    QVERIFY(!driver->clip(0).openWhenDone);
    input({"click", "--repeat", "2", "--delay", "30", "1"});
    QTRY_VERIFY_WITH_TIMEOUT(driver->clip(0).openWhenDone, longMilliseconds);
}

void TestX11::closedByTheWindowManagerTheProgramEnds() {
    auto* job = new Video(path("long.mp4"), folder.path(), 1.0, 1.0, 5.0, 0, false, nullptr,
                          nullptr, false, QDateTime());
    driver->setup.addFile(path("60.avi"));
    driver->window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&driver->setup, longMilliseconds));
    input({"windowactivate", "--sync", QString::number(driver->window.winId())});
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->window), longMilliseconds);
    driver->accept(job);
    input({"key", "alt+F4"});
    QTRY_VERIFY_WITH_TIMEOUT(!driver->window.isVisible(), longMilliseconds);
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->setup), longMilliseconds);
    QTimer::singleShot(0, qApp, [] { input({"key", "alt+F4"}); });
    QTimer::singleShot(longMilliseconds, qApp, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
    QVERIFY(!driver->setup.isVisible());
    QVERIFY(!driver->window.isVisible());
    QVERIFY(int(job->state) < int(Video::CancelRequested));
}

/// Opens the dialog for files and names one, once it is there.
void TestX11::chooseWithKeys(const QString& file) {
    QTimer whenShown;
    connect(&whenShown, &QTimer::timeout, this, [&] {
        const QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || !isInFront(*dialog))
            return;
        whenShown.stop();
        input({"type", file});
        input({"key", "Return"});
    });
    whenShown.start(100);
    input({"key", "ctrl+o"});
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->setup), longMilliseconds);
}

void TestX11::keyboardAloneIsEnough() {
    EncoderStand encoder;
    encoder.useRealEncoder();
    driver->window.show();
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->window), longMilliseconds);
    chooseWithKeys(recordingsDirectory() + "/garden.mp4");
    QVERIFY(driver->setupPart<QPushButton>("pushButtonAdd").hasFocus());
    input({"key", "space"});
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    QTRY_VERIFY_WITH_TIMEOUT(isInFront(driver->window), longMilliseconds);
    for (int step = 0; step < 4 && !driver->list().hasFocus(); ++step) {
        input({"key", "Tab"});
        QTest::qWait(100);
    }
    QVERIFY(driver->list().hasFocus());
    input({"key", "space", "ctrl+e"});
    QTRY_COMPARE_WITH_TIMEOUT(driver->clip(0).status, int(Clip::Exported), longMilliseconds);
    QDesktopServices::setUrlHandler("file", this, "noteOpened");
    input({"key", "Return"});
    QTRY_COMPARE_WITH_TIMEOUT(opened, QStringList{driver->clip(0).outputPath}, longMilliseconds);
    QDesktopServices::unsetUrlHandler("file");
    QVERIFY(QFileInfo(opened.first()).size() > 0);
    input({"key", "Delete"});
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 0, longMilliseconds);
}

QTEST_MAIN(TestX11)
#include "test_x11.moc"
