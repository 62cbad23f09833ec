// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "media.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Answer {
    int status = -1; ///< -1 if it crashed
    QByteArray output;
    QByteArray errors;
};

/// What the program says where there is no display.
Answer runWithoutDisplay(const QStringList& arguments, const QString& folder,
                         const QString& variable = {}, const QString& value = {}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(name);
    if (!variable.isEmpty())
        environment.insert(variable, value);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(folder);
    program.start(media::programDirectory() + "/kestrova", arguments);
    if (!program.waitForFinished())
        return {};
    const bool hasExited = program.exitStatus() == QProcess::NormalExit;
    return {hasExited ? program.exitCode() : -1, program.readAllStandardOutput(),
            program.readAllStandardError()};
}

} // namespace

class TestApplication : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saysItsVersion();
    void saysHowItIsUsed();
    void aFileOfThatNameIsAFile();
    void amongOtherArgumentsItIsAFile();
    void namesTheScannerWithoutADisplay_data();
    void namesTheScannerWithoutADisplay();

private:
    QTemporaryDir folder;
};

void TestApplication::saysItsVersion() {
    const Answer answer = runWithoutDisplay({"--version"}, folder.path());
    QCOMPARE(answer.status, 0);
    QCOMPARE(answer.output, QByteArray("kestrova " KESTROVA_VERSION "\n"));
}

void TestApplication::saysHowItIsUsed() {
    const Answer answer = runWithoutDisplay({"--help"}, folder.path());
    QCOMPARE(answer.status, 0);
    QVERIFY(answer.output.startsWith("Usage: kestrova [VIDEO]...\n"));
}

// It then needs its window, which there is no display for.
void TestApplication::aFileOfThatNameIsAFile() {
    QFile file(folder.filePath("--help"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const Answer answer = runWithoutDisplay({"--help"}, folder.path());
    QVERIFY(answer.status != 0);
    QVERIFY(answer.output.isEmpty());
    QVERIFY(file.remove());
}

void TestApplication::amongOtherArgumentsItIsAFile() {
    const Answer answer = runWithoutDisplay({"--version", "garden.mp4"}, folder.path());
    QVERIFY(answer.status != 0);
    QVERIFY(answer.output.isEmpty());
}

void TestApplication::namesTheScannerWithoutADisplay_data() {
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("no display") << QString() << QString() << QByteArray("connect to display");
    QTest::newRow("a display that is not there") << "DISPLAY"
                                                 << ":4711" << QByteArray(":4711");
    QTest::newRow("another platform") << "QT_QPA_PLATFORM"
                                      << "missing" << QByteArray("\"missing\"");
}

void TestApplication::namesTheScannerWithoutADisplay() {
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(QByteArray, reason);
    const Answer answer = runWithoutDisplay({"garden.mp4"}, folder.path(), variable, value);
    QCOMPARE(answer.status, 1);
    QVERIFY(answer.output.isEmpty());
    QVERIFY2(answer.errors.count('\n') == 1, answer.errors.constData());
    QVERIFY2(answer.errors.startsWith("kestrova: ") && answer.errors.contains("kestrova-scan") &&
                 answer.errors.contains(reason),
             answer.errors.constData());
}

QTEST_GUILESS_MAIN(TestApplication)
#include "test_application.moc"
