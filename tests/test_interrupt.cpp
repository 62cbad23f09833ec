// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Signals to the scanner, while it stands still in the middle of a recording.

#include "files.h"
#include "heldtrace.h"
#include "media.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>

class TestInterrupt : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void firstSignalClosesTheClip_data();
    void firstSignalClosesTheClip();
    void repeatsAreTheSameRequest();
    void laterSignalEndsAtOnce();
    void ignoredHangUpStaysIgnored();

private:
    void start(const QString& program, const QStringList& arguments);
    void send(int signal) const { ::kill(pid_t(process->processId()), signal); }
    bool isSignalPending() const;
    QStringList scannerCall() const;
    QString scanner() const { return media::programDirectory() + "/kestrova-scan"; }

    QTemporaryDir folder;
    QString busy; ///< 20 s of motion
    std::unique_ptr<HeldTrace> trace;
    std::unique_ptr<QProcess> process;
};

void TestInterrupt::initTestCase() {
    busy = folder.filePath("busy.mp4");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=160x120:r=25:d=20", "-c:v", "libx264",
                           "-preset", "ultrafast", busy}));
}

void TestInterrupt::init() {
    trace = std::make_unique<HeldTrace>(folder.filePath("trace"));
    process = std::make_unique<QProcess>();
}

void TestInterrupt::cleanup() {
    process->kill();
    process->waitForFinished();
    trace.reset();
}

QStringList TestInterrupt::scannerCall() const {
    return {"--format", "jsonl", "--minimum", "1", "--trace", trace->path(), busy};
}

/// Whether a signal waits for being taken by the scanner.
bool TestInterrupt::isSignalPending() const {
    const QByteArray status = readFile(QStringLiteral("/proc/%1/status").arg(process->processId()));
    return !status.contains("ShdPnd:\t0000000000000000");
}

/// Returns when the scan stands still.
void TestInterrupt::start(const QString& program, const QStringList& arguments) {
    process->start(program, arguments);
    QTRY_VERIFY_WITH_TIMEOUT(trace->isHolding(), 30000);
}

void TestInterrupt::firstSignalClosesTheClip_data() {
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void TestInterrupt::firstSignalClosesTheClip() {
    QFETCH(int, signal);
    start(scanner(), scannerCall());
    send(signal);
    trace->letGo();
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 130);
    const QList<QJsonObject> lines = jsonLines(process->readAllStandardOutput());
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0]["end"].toDouble(), lines[1]["seconds"].toDouble());
    QCOMPARE(lines[1]["state"].toString(), QString("cancelled"));
    QVERIFY(lines[1]["frames"].toInt() < 490);
}

void TestInterrupt::repeatsAreTheSameRequest() {
    start(scanner(), scannerCall());
    for (const int signal : {SIGTERM, SIGTERM, SIGINT, SIGTERM}) {
        send(signal);
        QTRY_VERIFY(!isSignalPending()); // or the next one would be merged with it
    }
    trace->letGo();
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 130);
    QCOMPARE(jsonLines(process->readAllStandardOutput()).size(), 2);
}

void TestInterrupt::laterSignalEndsAtOnce() {
    start(scanner(), scannerCall());
    send(SIGINT);
    QTest::qWait(2200); // what counts as a repeat is a matter of time
    QCOMPARE(process->state(), QProcess::Running);
    send(SIGTERM);
    QVERIFY(process->waitForFinished()); // though nobody reads the trace
    QCOMPARE(process->exitStatus(), QProcess::CrashExit);
    QCOMPARE(process->exitCode(), SIGTERM);
}

void TestInterrupt::ignoredHangUpStaysIgnored() {
    start("/bin/sh",
          QStringList{"-c", "trap '' HUP; exec \"$0\" \"$@\"", scanner()} + scannerCall());
    send(SIGHUP);
    trace->letGo();
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 0);
    const QList<QJsonObject> lines = jsonLines(process->readAllStandardOutput());
    QCOMPARE(lines.last()["state"].toString(), QString("finished"));
}

QTEST_GUILESS_MAIN(TestInterrupt)
#include "test_interrupt.moc"
