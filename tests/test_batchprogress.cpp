// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detectionqueue.h"
#include "video.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class TestBatchProgress : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nothing();
    void endedJobsStayInTheirBatch();
    void jobsEndedBeforeDoNotCount();
    void lateJobsJoin();
    void batchEndsWithItsLastJob();
    void cancelledJobsEnd();
    void unknownPositionTakesOneOff();
    void hugeNumbersWrap();

private:
    Video* addJob(qint64 fileSize, qint64 bytesRead, int state);

    QTemporaryDir folder;
    std::vector<std::unique_ptr<Video>> jobs;
    QList<Video*> videos;
    QList<Video*> batch;
};

void TestBatchProgress::init() {
    videos.clear();
    batch.clear();
    jobs.clear();
}

Video* TestBatchProgress::addJob(qint64 fileSize, qint64 bytesRead, int state) {
    jobs.push_back(std::make_unique<Video>("garden.mp4", folder.path(), 1.0, 1.0, 5.0, 0, false,
                                           nullptr, nullptr, false, QDateTime()));
    Video* job = jobs.back().get();
    job->fileSize = fileSize;
    job->bytesRead = bytesRead;
    job->state = state;
    videos.append(job);
    return job;
}

void TestBatchProgress::nothing() {
    const BatchProgress progress = updateBatch(videos, batch);
    QVERIFY(!progress.isActive);
    QCOMPARE(progress.fileSize, qint64(0));
}

void TestBatchProgress::endedJobsStayInTheirBatch() {
    Video* first = addJob(100, 0, Video::Running);
    Video* second = addJob(100, 0, Video::Waiting);
    Video* third = addJob(200, 0, Video::Waiting);
    QCOMPARE(updateBatch(videos, batch).percent(), 0);
    QCOMPARE(batch, QList<Video*>({first, second, third}));
    first->state = Video::Finished;
    first->bytesRead = 100;
    second->state = Video::Running;
    second->bytesRead = 50;
    const BatchProgress progress = updateBatch(videos, batch);
    QVERIFY(progress.isActive);
    QCOMPARE(progress.percent(), 37); // 150 of 400
}

void TestBatchProgress::jobsEndedBeforeDoNotCount() {
    addJob(1000, 1000, Video::Finished);
    addJob(1000, 10, Video::Failed);
    Video* running = addJob(100, 30, Video::Running);
    QCOMPARE(updateBatch(videos, batch).percent(), 30);
    QCOMPARE(batch, QList<Video*>({running}));
}

void TestBatchProgress::lateJobsJoin() {
    addJob(100, 50, Video::Running);
    QCOMPARE(updateBatch(videos, batch).percent(), 50);
    addJob(100, 0, Video::Waiting);
    QCOMPARE(updateBatch(videos, batch).percent(), 25);
}

void TestBatchProgress::batchEndsWithItsLastJob() {
    Video* first = addJob(100, 100, Video::Running);
    updateBatch(videos, batch);
    first->state = Video::Finished;
    QVERIFY(!updateBatch(videos, batch).isActive);
    QVERIFY(batch.isEmpty());
    addJob(100, 10, Video::Running);
    QCOMPARE(updateBatch(videos, batch).percent(), 10);
}

void TestBatchProgress::cancelledJobsEnd() {
    addJob(100, 40, Video::CancelRequested);
    addJob(100, 0, Video::CancelRequested);
    QVERIFY(!updateBatch(videos, batch).isActive);
    QVERIFY(batch.isEmpty());
}

void TestBatchProgress::unknownPositionTakesOneOff() {
    addJob(100, -1, Video::Running);
    addJob(100, 50, Video::Waiting);
    QCOMPARE(updateBatch(videos, batch).percent(), 24); // 49 of 200
}

void TestBatchProgress::hugeNumbersWrap() {
    const qint64 most = std::numeric_limits<qint64>::max();
    addJob(most, most, Video::Running);
    addJob(1, 1, Video::Running);
    const BatchProgress progress = updateBatch(videos, batch);
    QCOMPARE(progress.bytesRead, std::numeric_limits<qint64>::min());
    QVERIFY(progress.fileSize < 0); // the bar then keeps its value
}

QTEST_GUILESS_MAIN(TestBatchProgress)
#include "test_batchprogress.moc"
