// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detectionqueue.h"

#include "ffmpegmutex.h"
#include "files.h"
#include "media.h"
#include "video.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

namespace {

constexpr int longMilliseconds = 60000;

} // namespace

class TestDetectionQueue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void jobsRunInTheirOrder();
    void cancelledJobsDoNotStart();
    void jobIsOverWhenItsEndWasHeard();
    void stopsAtOnce();
    void stopCancelsAllJobs();
    void stopCancelsAJobThatIsJustStarting();
    void stopGivesUpAJobThatDoesNotEnd();

private:
    Video* makeJob(const QString& fileName) const;
    QString makeRecording(const QString& name, int seconds) const;

    QTemporaryDir folder;
    std::unique_ptr<DetectionQueue> queue;
};

void TestDetectionQueue::init() {
    queue = std::make_unique<DetectionQueue>();
}

Video* TestDetectionQueue::makeJob(const QString& fileName) const {
    return new Video(fileName, folder.path(), 1.0, 1.0, 5.0, 0, false, nullptr, nullptr, false,
                     QDateTime());
}

QString TestDetectionQueue::makeRecording(const QString& name, int seconds) const {
    const QString source = QString("testsrc2=s=64x48:r=25:d=%1").arg(seconds);
    const bool isMade = media::encode({"-f", "lavfi", "-i", source, folder.filePath(name)});
    return isMade ? folder.filePath(name) : QString();
}

void TestDetectionQueue::jobsRunInTheirOrder() {
    const QString recording = makeRecording("once.avi", 1);
    const QList<Video*> jobs = {makeJob(recording), makeJob("missing.avi"), makeJob(recording)};
    QList<int> order;
    for (int i = 0; i < jobs.size(); ++i)
        connect(jobs[i], &Video::resultReady, this, [&order, i] { order.append(i); });
    queue->add(jobs.mid(0, 2));
    queue->add(jobs.mid(2));
    QCOMPARE(queue->jobs(), jobs);
    QVERIFY(queue->isActive());
    QTRY_COMPARE_WITH_TIMEOUT(order, QList<int>({0, 1, 2}), longMilliseconds);
    QVERIFY(!queue->isActive());
    QCOMPARE(int(jobs[0]->state), int(Video::Finished));
    QCOMPARE(int(jobs[1]->state), int(Video::Failed));
    QCOMPARE(int(jobs[2]->state), int(Video::Finished));
}

void TestDetectionQueue::cancelledJobsDoNotStart() {
    const QString recording = makeRecording("cancelled.avi", 1);
    const QList<Video*> jobs = {makeJob(recording), makeJob(recording)};
    QSignalSpy end(jobs[0], SIGNAL(resultReady()));
    QSignalSpy secondEnd(jobs[1], SIGNAL(resultReady()));
    ffmpegMutex().lock(); // the first one runs until then
    queue->add(jobs);
    queue->cancel();
    ffmpegMutex().unlock();
    QTRY_COMPARE_WITH_TIMEOUT(end.size(), 1, longMilliseconds);
    QVERIFY(!queue->isActive());
    QCOMPARE(int(jobs[1]->state), int(Video::CancelRequested));
    QVERIFY(jobs[1]->thread() == thread());
    QCOMPARE(secondEnd.size(), 0);
}

/// Its lists belong to the worker until then, whatever its state.
void TestDetectionQueue::jobIsOverWhenItsEndWasHeard() {
    Video* job = makeJob(makeRecording("over.avi", 1));
    Video* withdrawn = makeJob("withdrawn.avi");
    ffmpegMutex().lock(); // the first one runs until then
    queue->add({job, withdrawn});
    queue->cancel();
    QVERIFY(job->hasEnded());
    QVERIFY(!queue->isOver(*job));
    QVERIFY(queue->isOver(*withdrawn)); // it never began
    ffmpegMutex().unlock();
    QTRY_VERIFY_WITH_TIMEOUT(queue->isOver(*job), longMilliseconds);
}

void TestDetectionQueue::stopsAtOnce() {
    QElapsedTimer timer;
    timer.start();
    queue->stop();
    QVERIFY(timer.elapsed() < 900);
    QVERIFY(!DetectionQueue::isAnyAbandoned());
}

void TestDetectionQueue::stopCancelsAllJobs() {
    const QList<Video*> jobs = {makeJob("a.mp4"), makeJob("b.mp4"), makeJob("c.mp4")};
    jobs[0]->state = Video::Running; // so that none is started
    jobs[1]->state = Video::Finished;
    queue->add(jobs);
    queue->stop();
    QCOMPARE(queue->jobs(), jobs);
    for (const Video* job : jobs)
        QCOMPARE(int(job->state), int(Video::CancelRequested));
}

void TestDetectionQueue::stopCancelsAJobThatIsJustStarting() {
    // Of many hours, so that it would be read for long.
    const QString recording = makeRecording("long.m2v", 10);
    QVERIFY(writeFile(recording, readFile(recording).repeated(400)));
    Video* job = makeJob(recording);
    queue->add({job});
    const QPointer<QThread> worker = job->thread();
    QVERIFY(worker != thread());
    queue->stop();
    QVERIFY(worker->isFinished());
    QVERIFY(!DetectionQueue::isAnyAbandoned());
}

void TestDetectionQueue::stopGivesUpAJobThatDoesNotEnd() {
    // As on a disk that does not answer: nothing can interrupt the wait for the mutex.
    const QString recording = makeRecording("short.avi", 1);
    ffmpegMutex().lock();
    Video* stuck = makeJob(recording);
    Video* waiting = makeJob("waiting.mp4");
    queue->add({stuck, waiting});
    QTRY_COMPARE(int(stuck->state), int(Video::Running));

    const QThread* worker = stuck->thread();
    QElapsedTimer timer;
    timer.start();
    QTest::ignoreMessage(QtDebugMsg, "Processing thread wait failed");
    queue->stop();
    QVERIFY(timer.elapsed() >= 1000 && timer.elapsed() < 1900);
    QVERIFY(DetectionQueue::isAnyAbandoned());
    QCOMPARE(queue->jobs(), QList<Video*>({waiting}));
    queue.reset();
    QVERIFY(worker->isRunning());

    ffmpegMutex().unlock();
    QTRY_VERIFY(worker->isFinished());
}

QTEST_GUILESS_MAIN(TestDetectionQueue)
#include "test_detectionqueue.moc"
