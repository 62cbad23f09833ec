// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs.h"
#include "setuprecordings.h"
#include "setupwindow.h"

#include <QSignalSpy>
#include <QtTest>

#include <pthread.h>

namespace {

constexpr int longMilliseconds = 120000;
constexpr int manyFiles = 3000;

bool isBusy() {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::BusyCursor;
}

/// As long as it exists no thread can be made: each asks for more stack than there are addresses.
class NoMoreThreads {
public:
    NoMoreThreads() {
        pthread_getattr_default_np(&before);
        pthread_attr_t wanted = before;
        pthread_attr_setstacksize(&wanted, std::size_t(1) << 50);
        pthread_setattr_default_np(&wanted);
    }
    ~NoMoreThreads() { pthread_setattr_default_np(&before); }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

private:
    pthread_attr_t before = {};
};

} // namespace

class TestSetupSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(recordings.make()); }
    void init() { recordings.startAnew(); }
    void unreadableFilesAreSkipped_data();
    void unreadableFilesAreSkipped();
    void manyUnreadableFilesNeedNoStack();
    void windowAnswersDuringALongSearch();
    void nothingIsOnShowDuringALongSearch();
    void longSearchThatFindsNothingHides();
    void longSearchNeedsNoThread();
    void filesAddedDuringALongSearchJoinIt();
    void longSearchEndsWithEverything_data();
    void longSearchEndsWithEverything();
    void longSearchWaitsForAModalDialog();

private:
    QString path(const QString& name) const { return recordings.path(name); }
    QStringList unreadable() const;

    SetupRecordings recordings;
};

/// More files without a picture than can be looked at in one go.
QStringList TestSetupSearch::unreadable() const {
    QStringList paths;
    for (int i = 0; i < manyFiles; ++i)
        paths.append(path("text.avi"));
    return paths;
}

void TestSetupSearch::unreadableFilesAreSkipped_data() {
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"text.avi", "empty.avi", "folder", "missing.avi", "pipe.avi", "sound.wav", "/dev/zero"})
        QTest::newRow(name) << QString(name);
    QTest::newRow("no name") << QString("");
}

void TestSetupSearch::unreadableFilesAreSkipped() {
    QFETCH(QString, name);
    const bool isName = !name.isEmpty() && !name.startsWith('/');
    const QString bad = isName ? path(name) : name;
    SetupWindow window;
    const DialogAnswer<> answer([](QDialog&) {});
    window.addFile(bad);
    QVERIFY(!window.isVisible());
    window.addFiles({bad, bad, path("b.avi"), bad});
    QTRY_VERIFY(window.isVisible());
    QCOMPARE(window.shownFile(), path("b.avi"));
    window.click("pushButtonAdd");
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(int(window.takeJobs().size()), 1);
    QVERIFY(!answer.wasShown());
}

void TestSetupSearch::manyUnreadableFilesNeedNoStack() {
    // More than a stack of 8 MiB could take if each needed 100 bytes of it.
    QStringList paths;
    for (int i = 0; i < 100000; ++i)
        paths.append(path("missing.avi"));
    for (int i = 0; i < 1000; ++i)
        paths.append(path("text.avi"));
    paths.append(path("a.avi"));
    SetupWindow window;
    window.addFiles(paths);
    QTRY_COMPARE_WITH_TIMEOUT(window.shownFile(), path("a.avi"), longMilliseconds);
}

void TestSetupSearch::windowAnswersDuringALongSearch() {
    SetupWindow window;
    window.addFiles(unreadable() + QStringList{path("a.avi")});
    QVERIFY(!window.isVisible());
    QVERIFY(isBusy());
    // The event loop runs round again and again before the file is found.
    int turns = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, &ticker, [&turns] { ++turns; });
    ticker.start(0);
    QTRY_VERIFY_WITH_TIMEOUT(window.isVisible(), longMilliseconds);
    QVERIFY2(turns > 3, qPrintable(QString::number(turns)));
    QCOMPARE(window.shownFile(), path("a.avi"));
    QVERIFY(!isBusy());
    QVERIFY(window.editor().isEnabled());
    window.click("pushButtonAdd");
    QCOMPARE(int(window.takeJobs().size()), 1);
}

void TestSetupSearch::nothingIsOnShowDuringALongSearch() {
    SetupWindow window;
    const QSignalSpy accepted(&window, SIGNAL(newVideo()));
    window.addFiles(QStringList{path("a.avi")} + unreadable() + QStringList{path("b.avi")});
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.click("pushButtonAdd");
    // The job starts at once; what is pressed now finds no file.
    QCOMPARE(accepted.count(), 1);
    QVERIFY(window.isVisible() && isBusy());
    for (const char* name : {"pushButtonAdd", "pushButtonAddAll", "pushButtonCancel", "maskEditor"})
        QVERIFY2(!window.isEnabled(name), name);
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    QVERIFY(window.isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(window.shownFile(), path("b.avi"), longMilliseconds);
    QVERIFY(window.get<QPushButton>("pushButtonAdd").hasFocus());
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    QStringList names;
    for (const auto& job : window.takeJobs())
        names.append(job->shortFileName());
    QCOMPARE(names, QStringList({"a.avi", "b.avi"}));
}

void TestSetupSearch::longSearchThatFindsNothingHides() {
    SetupWindow window;
    window.addFiles(QStringList{path("a.avi")} + unreadable());
    window.click("pushButtonAdd");
    QVERIFY(window.isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!window.isVisible(), longMilliseconds);
    QVERIFY(!isBusy());
    // And is ready for the next file.
    window.addFile(path("b.avi"));
    QCOMPARE(window.shownFile(), path("b.avi"));
    QVERIFY(window.isEnabled("pushButtonAdd"));
}

void TestSetupSearch::longSearchNeedsNoThread() {
    SetupWindow window;
    {
        const NoMoreThreads none;
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("QThread::start: .*"));
        window.addFiles(unreadable() + QStringList{path("a.avi")});
    }
    QVERIFY(!window.isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(window.shownFile(), path("a.avi"), longMilliseconds);
    QVERIFY(window.isVisible() && !isBusy());
}

void TestSetupSearch::filesAddedDuringALongSearchJoinIt() {
    SetupWindow window;
    window.addFiles(unreadable() + QStringList{path("a.avi")});
    window.addFile(path("b.avi"));
    window.addFiles({path("c.avi")});
    window.addFiles({});
    QVERIFY(!window.isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(window.isVisible(), longMilliseconds);
    QCOMPARE(window.shownFile(), path("a.avi"));
    window.click("pushButtonAddAll");
    QCOMPARE(int(window.takeJobs().size()), 3);
}

void TestSetupSearch::longSearchEndsWithEverything_data() {
    QTest::addColumn<QString>("how");
    for (const char* how : {"button", "Escape", "close", "destroyed"})
        QTest::newRow(how) << QString(how);
}

void TestSetupSearch::longSearchEndsWithEverything() {
    QFETCH(QString, how);
    auto window = std::make_unique<SetupWindow>();
    window->addFiles(QStringList{path("a.avi")} + unreadable() + QStringList{path("b.avi")});
    window->click("pushButtonAdd");
    QVERIFY(isBusy());
    if (how == "button")
        window->click("pushButtonCancelAll");
    else if (how == "Escape")
        QTest::keyClick(window.get(), Qt::Key_Escape);
    else if (how == "close")
        QVERIFY(window->close());
    else
        window.reset();
    QVERIFY(!isBusy());
    if (!window)
        return;
    QVERIFY(!window->isVisible());
    window->addFile(path("d.avi"));
    QCOMPARE(window->shownFile(), path("d.avi"));
    QVERIFY(window->isEnabled("pushButtonAdd"));
}

void TestSetupSearch::longSearchWaitsForAModalDialog() {
    SetupWindow window;
    window.addFiles(unreadable() + QStringList{path("a.avi")});
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    int turns = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, &ticker, [&turns] { ++turns; });
    ticker.start(0);
    // Far more turns than the search would need.
    QTRY_VERIFY_WITH_TIMEOUT(turns > 10 * manyFiles, longMilliseconds);
    QVERIFY(!window.isVisible());
    dialog.reject();
    QTRY_VERIFY_WITH_TIMEOUT(window.isVisible(), longMilliseconds);
    QCOMPARE(window.shownFile(), path("a.avi"));
}

QTEST_MAIN(TestSetupSearch)
#include "test_setupsearch.moc"
