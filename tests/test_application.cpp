// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "media.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Answer {
    int status = -1;
    QByteArray output;
};

/// What the program says where there is no display.
Answer runWithoutDisplay(const QStringList& arguments, const QString& folder) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(name);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(folder);
    program.start(media::programDirectory() + "/kestrova", arguments);
    if (!program.waitForFinished())
        return {};
    const bool hasExited = program.exitStatus() == QProcess::NormalExit;
    return {hasExited ? program.exitCode() : -1, program.readAllStandardOutput()};
}

} // namespace

class TestApplication : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saysItsVersion();
    void saysHowItIsUsed();
    void aFileOfThatNameIsAFile();
    void amongOtherArgumentsItIsAFile();

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

QTEST_GUILESS_MAIN(TestApplication)
#include "test_application.moc"
