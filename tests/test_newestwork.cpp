// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "newestwork.h"

#include "faults.h"
#include "process.h"

#include <QSemaphore>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <new>

class TestNewestWork : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void worksBesideTheGuiThread();
    void ofThoseThatWaitTheNewestIsDone();
    void whatIsCancelledDoesNotEnd();
    void nothingIsToldWhenItIsGone();
    void wantOfMemoryIsAFailure();
    void noThread();

private:
    NewestWork::Work workFor(const QString& name);
    NewestWork::Work heldWork(const QString& name);

    std::shared_ptr<QSemaphore> gate; ///< each of heldWork waits for one
    std::shared_ptr<QSemaphore> begun;
    QStringList ends;
};

void TestNewestWork::init() {
    gate = std::make_shared<QSemaphore>();
    begun = std::make_shared<QSemaphore>();
    ends.clear();
}

NewestWork::Work TestNewestWork::workFor(const QString& name) {
    return
        [this, name](const NewestWork::IsInterrupted&) { return [this, name] { ends += name; }; };
}

/// Waits until it is interrupted or let go on.
NewestWork::Work TestNewestWork::heldWork(const QString& name) {
    return
        [this, name, gate = gate, begun = begun](const NewestWork::IsInterrupted& isInterrupted) {
            begun->release();
            while (!gate->tryAcquire(1, 5) && !isInterrupted()) {
            }
            return [this, name] { ends += name; };
        };
}

void TestNewestWork::worksBesideTheGuiThread() {
    NewestWork work;
    QThread* worker = nullptr;
    QThread* ender = nullptr;
    work.start([&](const NewestWork::IsInterrupted&) {
        worker = QThread::currentThread();
        return [&] { ender = QThread::currentThread(); };
    });
    QVERIFY(work.isBusy());
    QTRY_VERIFY(ender);
    QVERIFY(worker != thread());
    QCOMPARE(ender, thread());
    QVERIFY(!work.isBusy());
}

void TestNewestWork::ofThoseThatWaitTheNewestIsDone() {
    NewestWork work;
    work.start(heldWork("first"));
    QVERIFY(begun->tryAcquire(1, 5000));
    work.start(workFor("second"));
    work.start(workFor("third"));
    gate->release();
    QTRY_COMPARE(ends, QStringList({"first", "third"}));
}

void TestNewestWork::whatIsCancelledDoesNotEnd() {
    NewestWork work;
    work.start(heldWork("first"));
    QVERIFY(begun->tryAcquire(1, 5000));
    work.start(workFor("second"));
    work.cancel();
    QVERIFY(!work.isBusy());
    work.start(workFor("third"));
    QVERIFY(work.isBusy());
    QTRY_COMPARE(ends, QStringList({"third"}));
}

void TestNewestWork::nothingIsToldWhenItIsGone() {
    auto work = std::make_unique<NewestWork>();
    work->start(heldWork("first"));
    QVERIFY(begun->tryAcquire(1, 5000));
    QElapsedTimer timer;
    timer.start();
    work.reset();
    QVERIFY(timer.elapsed() < 900);
    QCoreApplication::processEvents();
    QCOMPARE(ends, QStringList());
}

void TestNewestWork::wantOfMemoryIsAFailure() {
    NewestWork work;
    QSignalSpy failed(&work, SIGNAL(failed()));
    work.start(
        [](const NewestWork::IsInterrupted&) -> NewestWork::Ending { throw std::bad_alloc(); });
    QTRY_COMPARE(failed.count(), 1);
    QVERIFY(!work.isBusy());
    work.start(workFor("next"));
    QTRY_COMPARE(ends, QStringList({"next"}));
}

void TestNewestWork::noThread() {
    const QTemporaryDir folder;
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        const ProcessResult result =
            runProgramIn(faults::noThreadsWhile(folder.filePath("no-threads")),
                         QCoreApplication::applicationFilePath(), {"noThread"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    // Here no thread can be had while the file is there.
    QFile noThreads(qEnvironmentVariable("FAILING_FILE"));
    QVERIFY(noThreads.open(QIODevice::WriteOnly));
    NewestWork work;
    QSignalSpy failed(&work, SIGNAL(failed()));
    work.start(workFor("never"));
    QVERIFY(!work.isBusy());
    QTRY_COMPARE(failed.count(), 1);
    QVERIFY(noThreads.remove());
    work.start(workFor("later"));
    QTRY_COMPARE(ends, QStringList({"later"}));
}

QTEST_GUILESS_MAIN(TestNewestWork)
#include "test_newestwork.moc"
