// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "faults.h"
#include "process.h"
#include "toolkit.h"
#include "windowtest.h"

#include <QProgressBar>

class TestWindowQueue : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeRecordings(); }
    void init() { open(); }
    void cleanup() { close(); }

    void oneJobAfterTheOther();
    void fileThatIsNoVideoHoldsNothingUp();
    void cancelEndsAllJobs();
    void cancelLeavesJobsThatHaveEnded();
    void jobAcceptedAfterACancel();
    void withdrawnJobNeverRuns();
    void jobIsStartedOnce();
    void progressIsShownWhileJobsRun();
    void noThreadForTheWorker();
};

void TestWindowQueue::oneJobAfterTheOther() {
    Video* first = makeJob(shortRecording);
    Video* second = makeJob(shortRecording);
    QSignalSpy firstEnd(first, SIGNAL(resultReady()));
    int secondAtFirstEnd = -1;
    connect(
        first, &Video::resultReady, first, [&] { secondAtFirstEnd = second->state; },
        Qt::DirectConnection);
    driver->setup.readyVideos.append(first);
    driver->accept(second);
    QVERIFY(driver->setup.readyVideos.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(int(second->state), int(Video::Finished), longMilliseconds);
    QCOMPARE(int(first->state), int(Video::Finished));
    QCOMPARE(secondAtFirstEnd, int(Video::Waiting));
    QCOMPARE(firstEnd.size(), 1);
    QTRY_COMPARE(driver->list().count(), 2);
    QCOMPARE(driver->clip(0).video.data(), first);
    QCOMPARE(driver->clip(1).video.data(), second);
}

void TestWindowQueue::fileThatIsNoVideoHoldsNothingUp() {
    Video* broken = makeJob(QCoreApplication::applicationFilePath());
    Video* good = makeJob(shortRecording);
    driver->setup.readyVideos.append(broken);
    driver->accept(good);
    QTRY_COMPARE_WITH_TIMEOUT(int(good->state), int(Video::Finished), longMilliseconds);
    QCOMPARE(int(broken->state), int(Video::Failed));
}

void TestWindowQueue::cancelEndsAllJobs() {
    QList<Video*> jobs = {makeJob(longRecording), makeJob(shortRecording), makeJob(shortRecording)};
    QSignalSpy end(jobs[0], SIGNAL(resultReady()));
    driver->setup.readyVideos = jobs.mid(0, 2);
    driver->accept(jobs[2]);
    QTRY_COMPARE(int(jobs[0]->state), int(Video::Running));
    tick();
    QVERIFY(driver->action("actionCancel").isEnabled());
    driver->click("pushButtonCancel");
    for (const Video* job : qAsConst(jobs))
        QCOMPARE(int(job->state), int(Video::CancelRequested));
    QTRY_COMPARE(end.size(), 1);
    tick();
    QVERIFY(!driver->part<QProgressBar>("progressBar").isVisible());
    QVERIFY(!driver->part<QPushButton>("pushButtonCancel").isVisible());
    QVERIFY(!driver->action("actionCancel").isEnabled());
    for (const Video* job : qAsConst(jobs))
        QCOMPARE(int(job->state), int(Video::CancelRequested));
    QVERIFY(jobs[1]->thread() == QThread::currentThread()); // never started
    QVERIFY(jobs[2]->thread() == QThread::currentThread());
}

void TestWindowQueue::cancelLeavesJobsThatHaveEnded() {
    Video* broken = makeJob(recordings.filePath("missing.mp4"));
    Video* good = makeJob(shortRecording);
    Video* running = makeJob(longRecording);
    driver->setup.readyVideos = {broken, good};
    driver->accept(running);
    QTRY_COMPARE_WITH_TIMEOUT(int(running->state), int(Video::Running), longMilliseconds);
    driver->click("pushButtonCancel");
    QCOMPARE(int(broken->state), int(Video::Failed));
    QCOMPARE(int(good->state), int(Video::Finished));
    QCOMPARE(int(running->state), int(Video::CancelRequested));
}

void TestWindowQueue::jobAcceptedAfterACancel() {
    Video* cancelled = makeJob(longRecording);
    driver->accept(cancelled);
    QTRY_COMPARE(int(cancelled->state), int(Video::Running));
    tick();
    driver->trigger("actionCancel");
    Video* next = makeJob(shortRecording);
    driver->accept(next);
    QTRY_COMPARE_WITH_TIMEOUT(int(next->state), int(Video::Finished), longMilliseconds);
    QCOMPARE(int(cancelled->state), int(Video::CancelRequested));
}

void TestWindowQueue::withdrawnJobNeverRuns() {
    Video* stalled = makeJob(shortRecording);
    QSignalSpy end(stalled, SIGNAL(resultReady()));
    acceptStalled(stalled);
    driver->click("pushButtonCancel");
    Video* withdrawn = makeJob(shortRecording);
    Video* next = makeJob(shortRecording);
    driver->accept(withdrawn);
    QCOMPARE(int(withdrawn->state), int(Video::Waiting));
    driver->click("pushButtonCancel");
    driver->accept(next);
    QVERIFY(withdrawn->thread() == QThread::currentThread());
    QVERIFY(next->thread() == QThread::currentThread());
    QCOMPARE(end.size(), 0);
    gate.unlock();
    QTRY_COMPARE_WITH_TIMEOUT(int(next->state), int(Video::Finished), longMilliseconds);
    QCOMPARE(end.size(), 1);
    QCOMPARE(int(withdrawn->state), int(Video::CancelRequested));
    QVERIFY(withdrawn->thread() == QThread::currentThread()); // never started
}

void TestWindowQueue::jobIsStartedOnce() {
    Video* job = makeJob(shortRecording);
    QSignalSpy end(job, SIGNAL(resultReady()));
    driver->accept(job);
    // The worker may not have begun with it yet.
    QMetaObject::invokeMethod(&driver->window, "processQueue");
    QMetaObject::invokeMethod(&driver->window, "processQueue");
    Video* next = makeJob(shortRecording);
    driver->accept(next);
    QTRY_COMPARE_WITH_TIMEOUT(int(next->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), 2);
    QCOMPARE(end.size(), 1);
}

void TestWindowQueue::progressIsShownWhileJobsRun() {
    Video* job = makeJob(longRecording);
    driver->accept(job);
    auto& bar = driver->part<QProgressBar>("progressBar");
    QTRY_VERIFY(bar.isVisible()); // within a tick of the timer
    QVERIFY(driver->part<QPushButton>("pushButtonCancel").isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(job->bytesRead * 100 / job->fileSize >= 3 || job->hasEnded(),
                             longMilliseconds);
    QVERIFY(!job->hasEnded());
    tick();
    const int value = bar.value();
    QVERIFY2(value >= 3 && value <= job->bytesRead * 100 / job->fileSize,
             qPrintable(QString::number(value)));
    driver->click("pushButtonCancel");
    QTRY_VERIFY(!bar.isVisible());
    QVERIFY(bar.value() >= value);
}

void TestWindowQueue::noThreadForTheWorker() {
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        const ProcessResult result =
            runProgramIn(faults::noThreadsWhile(folder->filePath("no-threads")),
                         QCoreApplication::applicationFilePath(), {"noThreadForTheWorker"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    keepToolkitThread(); // as the program does; a conversion would else wait for a thread for ever
    // Here no thread can be had while the file is there.
    QFile noThreads(qEnvironmentVariable("FAILING_FILE"));
    QVERIFY(noThreads.open(QIODevice::WriteOnly));
    driver.reset(); // the new one looks for its own setup window
    driver = std::make_unique<MainWindowDriver>();
    Video* first = makeJob(shortRecording);
    Video* second = makeJob(shortRecording);
    for (Video* job : {first, second}) {
        driver->accept(job);
        QCOMPARE(driver->part<QStatusBar>("statusBar").currentMessage(),
                 QString("No thread to run detection on, trying again..."));
        QCOMPARE(int(job->state), int(Video::Waiting));
    }
    driver->click("pushButtonCancel");
    QVERIFY(first->hasEnded() && second->hasEnded());

    Video* third = makeJob(shortRecording);
    driver->accept(third);
    QVERIFY(noThreads.remove());
    QTRY_COMPARE_WITH_TIMEOUT(int(third->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), 1); // its signal may come behind the state
    QCOMPARE(driver->part<QStatusBar>("statusBar").currentMessage(), QString());

    // One that never got a thread ends like any other.
    QVERIFY(noThreads.open(QIODevice::WriteOnly));
    driver.reset(); // the new one looks for its own setup window
    driver = std::make_unique<MainWindowDriver>();
    driver->accept(makeJob(shortRecording));
    driver.reset();
    QVERIFY(noThreads.remove());
    driver.reset(); // the new one looks for its own setup window
    driver = std::make_unique<MainWindowDriver>();
}

QTEST_MAIN(TestWindowQueue)
#include "test_windowqueue.moc"
