// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Which of the recordings that wait is searched next.

#include "detectionqueue.h"
#include "ffmpegmutex.h"
#include "files.h"
#include "likeliestfirst.h"
#include "media.h"
#include "video.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

constexpr int longMilliseconds = 20000;

/// As they are scored, how the jobs stand ("w"aiting or "e"nded), and the order of their starts.
struct Case {
    const char* name;
    QVector<float> scores; ///< below 0: unknown
    const char* states;
    QVector<int> order;
};

const QVector<Case> cases = {
    {"the best first", {1.0F, 3.0F, 2.0F}, "www", {1, 2, 0}},
    {"equal ones in order", {1.0F, 1.0F, 1.0F}, "www", {0, 1, 2}},
    {"nothing known", {-1.0F, -1.0F, -1.0F}, "www", {0, 1, 2}},
    {"the unknown second keeps its place", {1.0F, -1.0F, 3.0F, 2.0F}, "wwww", {2, 1, 3, 0}},
    {"the unknown first, too", {-1.0F, 1.0F, 2.0F}, "www", {0, 2, 1}},
    {"the unknown last, too", {1.0F, 2.0F, -1.0F}, "www", {1, 0, 2}},
    {"what has ended counts as begun", {-1.0F, 1.0F, -1.0F, 2.0F}, "ewww", {3, 2, 1}},
    {"nobody waits", {2.0F, 1.0F}, "ee", {}},
};

} // namespace

class TestLikeliest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void orderOfJobs_data();
    void orderOfJobs();
    void twoSidesTakeTurns();
    void offIsTheOrderOfAdding();
    void likeliestIsSearchedNext();
    void turnedOffAndOnInTheMiddle();
    void lostWhileItWaits();
    void jobsThatAreAddedLaterCount();
    void whatEndsMeanwhileIsNotLookedAt();
    void quitInTheMiddle();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QString visit(const QString& name, int from, int to) const;
    Video* makeJob(const QString& fileName) const;
    void addHeld(const QStringList& names);
    QStringList ended() const { return order; }

    QTemporaryDir folder;
    QStringList order; ///< names, as they have ended
    std::unique_ptr<DetectionQueue> queue;
    std::unique_ptr<LikeliestFirst> likeliest;
};

void TestLikeliest::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().setValue("kept_values_mb", 0); // each job measures
    QVERIFY(!visit("quiet.avi", 90, 95).isEmpty());
    QVERIFY(QFile::copy(path("quiet.avi"), path("held.avi")));
    QVERIFY(!visit("short.avi", 9, 10).isEmpty());
    QVERIFY(!visit("long.avi", 5, 15).isEmpty());
    QVERIFY(writeFile(path("none.avi"), "no recording"));
}

void TestLikeliest::init() {
    order.clear();
    queue = std::make_unique<DetectionQueue>();
    likeliest = std::make_unique<LikeliestFirst>(*queue);
}

void TestLikeliest::cleanup() {
    likeliest.reset();
    queue.reset();
}

/// A still scene with sensor noise, in which something crosses.
QString TestLikeliest::visit(const QString& name, int from, int to) const {
    const bool isMade = media::encode(media::crossingBox(20, from, to, "160x120") +
                                      QStringList{"-c:v", "mpeg4", "-q:v", "5", path(name)});
    return isMade ? path(name) : QString();
}

Video* TestLikeliest::makeJob(const QString& fileName) const {
    return new Video(fileName, folder.path(), 1.0, 1.0, 5.0, 0, false, nullptr, nullptr, false,
                     QDateTime());
}

/// The first of them is begun and goes on once the mutex is free.
void TestLikeliest::addHeld(const QStringList& names) {
    QList<Video*> jobs;
    for (const QString& name : names) {
        jobs += makeJob(path(name));
        connect(jobs.last(), &Video::resultReady, this, [this, name] { order += name; });
    }
    queue->add(jobs);
}

void TestLikeliest::orderOfJobs_data() {
    QTest::addColumn<int>("number");
    for (int i = 0; i < cases.size(); ++i)
        QTest::newRow(cases[i].name) << i;
}

void TestLikeliest::orderOfJobs() {
    QFETCH(int, number);
    const Case& one = cases[number];
    QList<Video*> jobs;
    JobPromises promises;
    for (int i = 0; i < one.scores.size(); ++i) {
        jobs += makeJob("missing.avi");
        jobs[i]->state = one.states[i] == 'w' ? Video::Waiting : Video::Finished;
        if (one.scores[i] >= 0.0F)
            promises[jobs[i]] = {one.scores[i], one.scores[i]};
    }
    QVector<int> found;
    while (Video* next = likeliestOf(jobs, promises)) {
        found += jobs.indexOf(next);
        next->state = Video::Finished;
    }
    QCOMPARE(found, one.order);
    qDeleteAll(jobs);
}

/// Also where the first ones have begun already.
void TestLikeliest::twoSidesTakeTurns() {
    const QVector<PartPromise> sides = {{4.0F, 0.0F}, {3.0F, 0.1F}, {2.0F, 2.0F}, {1.0F, 1.0F}};
    QList<Video*> jobs;
    JobPromises promises;
    for (const PartPromise& side : sides) {
        jobs += makeJob("missing.avi");
        promises[jobs.last()] = side;
    }
    for (const int expected : {0, 2, 1, 3}) {
        Video* next = likeliestOf(jobs, promises);
        QCOMPARE(jobs.indexOf(next), expected);
        next->state = Video::Finished;
    }
    qDeleteAll(jobs);
}

void TestLikeliest::offIsTheOrderOfAdding() {
    addHeld({"held.avi", "quiet.avi", "short.avi", "long.avi"});
    QTRY_COMPARE_WITH_TIMEOUT(
        ended(), QStringList({"held.avi", "quiet.avi", "short.avi", "long.avi"}), longMilliseconds);
    QVERIFY(likeliest->promises().isEmpty()); // nothing was looked at
}

/// What is no recording keeps its place, the third.
void TestLikeliest::likeliestIsSearchedNext() {
    likeliest->setOn(true);
    ffmpegMutex().lock();
    addHeld({"held.avi", "quiet.avi", "none.avi", "short.avi", "long.avi"});
    QTRY_COMPARE_WITH_TIMEOUT(likeliest->promises().size(), 3, longMilliseconds);
    QVERIFY(!likeliest->promises().contains(queue->jobs().first())); // it was begun at once
    ffmpegMutex().unlock();
    const QStringList expected = {"held.avi", "long.avi", "none.avi", "short.avi", "quiet.avi"};
    QTRY_COMPARE_WITH_TIMEOUT(ended(), expected, longMilliseconds);
    const QList<Video*> jobs = queue->jobs(); // whose rows stay where they are
    QCOMPARE(jobs[1]->shortFileName(), QString("quiet.avi"));
    QCOMPARE(jobs[4]->shortFileName(), QString("long.avi"));
}

void TestLikeliest::turnedOffAndOnInTheMiddle() {
    likeliest->setOn(true);
    ffmpegMutex().lock();
    addHeld({"held.avi", "quiet.avi", "short.avi", "long.avi"});
    QTRY_COMPARE_WITH_TIMEOUT(likeliest->promises().size(), 3, longMilliseconds);
    likeliest->setOn(false);
    // On again as soon as the first has ended and the next in order is begun.
    connect(queue->jobs()[0], &Video::resultReady, this,
            [this] { QTimer::singleShot(0, this, [this] { likeliest->setOn(true); }); });
    ffmpegMutex().unlock();
    QTRY_COMPARE_WITH_TIMEOUT(
        ended(), QStringList({"held.avi", "quiet.avi", "long.avi", "short.avi"}), longMilliseconds);
}

/// One that was lost before anybody looked keeps its place, one that was lost later fails in its.
void TestLikeliest::lostWhileItWaits() {
    QVERIFY(QFile::copy(path("long.avi"), path("lost.avi")));
    likeliest->setOn(true);
    ffmpegMutex().lock();
    addHeld({"held.avi", "gone.avi", "short.avi", "lost.avi"});
    QTRY_COMPARE_WITH_TIMEOUT(likeliest->promises().size(), 2, longMilliseconds);
    QVERIFY(QFile::remove(path("lost.avi")));
    ffmpegMutex().unlock();
    QTRY_COMPARE_WITH_TIMEOUT(
        ended(), QStringList({"held.avi", "gone.avi", "lost.avi", "short.avi"}), longMilliseconds);
    QCOMPARE(int(queue->jobs()[3]->state), int(Video::Failed));
}

void TestLikeliest::jobsThatAreAddedLaterCount() {
    likeliest->setOn(true);
    ffmpegMutex().lock();
    addHeld({"held.avi", "quiet.avi"});
    QTRY_COMPARE_WITH_TIMEOUT(likeliest->promises().size(), 1, longMilliseconds);
    addHeld({"short.avi"});
    QTRY_COMPARE_WITH_TIMEOUT(likeliest->promises().size(), 2, longMilliseconds);
    ffmpegMutex().unlock();
    QTRY_COMPARE_WITH_TIMEOUT(ended(), QStringList({"held.avi", "short.avi", "quiet.avi"}),
                              longMilliseconds);
}

void TestLikeliest::whatEndsMeanwhileIsNotLookedAt() {
    ffmpegMutex().lock();
    addHeld({"held.avi", "quiet.avi", "short.avi"});
    queue->cancel(*queue->jobs()[1]);
    likeliest->setOn(true);
    QTRY_COMPARE_WITH_TIMEOUT(likeliest->promises().size(), 1, longMilliseconds);
    QVERIFY(likeliest->promises().contains(queue->jobs()[2]));
    ffmpegMutex().unlock();
    QTRY_COMPARE_WITH_TIMEOUT(ended(), QStringList({"held.avi", "short.avi"}), longMilliseconds);
    QVERIFY(!likeliest->promises().contains(queue->jobs()[1]));
}

/// While a recording of a day is looked at.
void TestLikeliest::quitInTheMiddle() {
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=64x48:r=25:d=10", path("day.m2v")}));
    QVERIFY(writeFile(path("day.m2v"), readFile(path("day.m2v")).repeated(1000)));
    likeliest->setOn(true);
    ffmpegMutex().lock();
    addHeld({"held.avi", "day.m2v"});
    QTest::qWait(30); // it is in the middle
    const bool isStillLooking = likeliest->promises().isEmpty();
    ffmpegMutex().unlock();
    QElapsedTimer timer;
    timer.start();
    likeliest.reset();
    QVERIFY(timer.elapsed() < 900);
    QVERIFY(isStillLooking);
    QVERIFY(!BackgroundThread::isAnyAbandoned());
}

QTEST_GUILESS_MAIN(TestLikeliest)
#include "test_likeliest.moc"
