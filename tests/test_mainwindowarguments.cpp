// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mainwindowdriver.h"
#include "media.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int longMilliseconds = 120000;

/// A command line with far more files than can be looked at before the window is there; the last
/// but one is the last recording.
QStringList commandLine(const QDir& folder) {
    QStringList arguments = {"kestrova"};
    for (int i = 0; i < 30000; ++i)
        arguments.append(folder.filePath("text.mp4"));
    return arguments + QStringList{folder.filePath("a.avi"), folder.filePath("b.avi")};
}

bool makeFiles(const QDir& folder) {
    const QImage picture = media::grey(320, 240, 90);
    QFile text(folder.filePath("text.mp4"));
    return media::encodeGrey(folder.filePath("a.avi"), {picture, picture}, 5, {"-c:v", "mjpeg"}) &&
           QFile::copy(folder.filePath("a.avi"), folder.filePath("b.avi")) &&
           text.open(QIODevice::WriteOnly) && text.write("no video\n") > 0;
}

} // namespace

class TestMainWindowArguments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lastRecordingIsSetUp();
    void windowMayGoBeforeAllFilesWereLookedAt();
};

void TestMainWindowArguments::lastRecordingIsSetUp() {
    const QString last = QCoreApplication::arguments().last();
    MainWindowDriver driver;
    driver.window.show();
    const auto& shownFile = driver.setupPart<QLabel>("labelInfo");
    QVERIFY(shownFile.text() != last);
    QVERIFY(QGuiApplication::overrideCursor());
    // Meanwhile the windows live.
    int turns = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, &ticker, [&turns] { ++turns; });
    ticker.start(0);
    QTRY_COMPARE_WITH_TIMEOUT(shownFile.text(), last, longMilliseconds);
    QTRY_VERIFY(!QGuiApplication::overrideCursor());
    QVERIFY2(turns > 3, qPrintable(QString::number(turns)));
    QVERIFY(driver.setup.isVisible());
}

void TestMainWindowArguments::windowMayGoBeforeAllFilesWereLookedAt() {
    {
        MainWindowDriver driver;
        QVERIFY(QGuiApplication::overrideCursor());
    }
    QVERIFY(!QGuiApplication::overrideCursor());
    QCoreApplication::processEvents();
}

int main(int argc, char* argv[]) {
    const QTemporaryDir folder;
    QList<QByteArray> texts;
    QVector<char*> arguments;
    for (const QString& argument : commandLine(QDir(folder.path())))
        texts.append(QFile::encodeName(argument));
    for (QByteArray& text : texts)
        arguments.append(text.data());
    int count = arguments.size();
    const QApplication application(count, arguments.data());
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    TestMainWindowArguments test;
    return makeFiles(QDir(folder.path())) ? QTest::qExec(&test, argc, argv) : 1;
}

#include "test_mainwindowarguments.moc"
