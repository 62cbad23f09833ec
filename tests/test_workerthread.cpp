// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ffmpegmutex.h"
#include "files.h"
#include "media.h"
#include "video.h"
#include "workerthread.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

class TestWorkerThread : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void stopsAtOnce();
    void cancelsAllJobs();
    void cancelsAJobThatIsJustStarting();
    void givesUpAJobThatDoesNotEnd();

private:
    Video* addJob(const QString& fileName);

    QTemporaryDir folder;
    QList<Video*> jobs;
    std::unique_ptr<WorkerThread> thread;
};

void TestWorkerThread::init() {
    jobs.clear();
    thread = std::make_unique<WorkerThread>();
    thread->start();
}

Video* TestWorkerThread::addJob(const QString& fileName) {
    jobs.append(new Video(fileName, folder.path(), 1.0, 1.0, 5.0, 0, false, nullptr, nullptr, false,
                          QDateTime()));
    return jobs.last();
}

void TestWorkerThread::stopsAtOnce() {
    QElapsedTimer timer;
    timer.start();
    WorkerThread::stop(thread, jobs);
    QVERIFY(timer.elapsed() < 900);
    QVERIFY(thread->isFinished());
    QVERIFY(!WorkerThread::isAnyAbandoned());
}

void TestWorkerThread::cancelsAllJobs() {
    addJob("a.mp4");
    addJob("b.mp4")->state = Video::Finished;
    jobs.append(nullptr);
    WorkerThread::stop(thread, jobs);
    QCOMPARE(jobs.size(), 3);
    QCOMPARE(int(jobs[0]->state), int(Video::CancelRequested));
    QCOMPARE(int(jobs[1]->state), int(Video::CancelRequested));
    qDeleteAll(jobs);
}

void TestWorkerThread::cancelsAJobThatIsJustStarting() {
    // Of many hours, so that it would be read for long.
    const QString recording = folder.filePath("long.m2v");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=64x48:r=25:d=10", recording}));
    QVERIFY(writeFile(recording, readFile(recording).repeated(400)));
    Video* job = addJob(recording);
    job->moveToThread(thread.get());
    QMetaObject::invokeMethod(job, "detect");
    WorkerThread::stop(thread, jobs);
    QVERIFY(thread && thread->isFinished());
    QVERIFY(!WorkerThread::isAnyAbandoned());
    qDeleteAll(jobs);
}

void TestWorkerThread::givesUpAJobThatDoesNotEnd() {
    // As on a disk that does not answer: nothing can interrupt the wait for the mutex.
    const QString recording = folder.filePath("short.avi");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=64x48:r=25:d=1", recording}));
    ffmpegMutex().lock();
    Video* stuck = addJob(recording);
    Video* waiting = addJob("waiting.mp4");
    stuck->moveToThread(thread.get());
    QMetaObject::invokeMethod(stuck, "detect");
    QTRY_COMPARE(int(stuck->state), int(Video::Running));

    const WorkerThread* runningThread = thread.get();
    QElapsedTimer timer;
    timer.start();
    QTest::ignoreMessage(QtDebugMsg, "Processing thread wait failed");
    WorkerThread::stop(thread, jobs);
    QVERIFY(timer.elapsed() >= 1000 && timer.elapsed() < 1900);
    QVERIFY(!thread);
    QVERIFY(WorkerThread::isAnyAbandoned());
    QCOMPARE(jobs, QList<Video*>({waiting}));
    QVERIFY(runningThread->isRunning());
    qDeleteAll(jobs);

    ffmpegMutex().unlock();
    QTRY_VERIFY(runningThread->isFinished());
}

QTEST_GUILESS_MAIN(TestWorkerThread)
#include "test_workerthread.moc"
