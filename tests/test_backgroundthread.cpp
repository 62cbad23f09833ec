// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "backgroundthread.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>
#include <QtTest>

#include <new>

class TestBackgroundThread : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tasksGoOneAfterTheOther();
    void answersComeOnTheGuiThread();
    void nobodyIsCalledWhoIsGone();
    void missingMemoryEndsTheTaskAlone();
    void stuckTaskIsGivenUp();
};

void TestBackgroundThread::tasksGoOneAfterTheOther() {
    BackgroundThread thread;
    QVector<int> done;
    for (int number = 0; number < 5; ++number)
        QVERIFY(thread.run(this, [&done, number](const GuiCall&) { done.append(number); }));
    QSemaphore ended;
    thread.run(this, [&ended](const GuiCall&) { ended.release(); });
    QVERIFY(ended.tryAcquire(1, 10000));
    QCOMPARE(done, QVector<int>({0, 1, 2, 3, 4}));
}

void TestBackgroundThread::answersComeOnTheGuiThread() {
    BackgroundThread thread;
    QThread* asked = nullptr;
    QThread* answered = nullptr;
    thread.run(this, [&](const GuiCall& callBack) {
        asked = QThread::currentThread();
        callBack([&answered] { answered = QThread::currentThread(); });
    });
    QTRY_VERIFY(answered);
    QCOMPARE(answered, QThread::currentThread());
    QVERIFY(asked != answered);
}

void TestBackgroundThread::nobodyIsCalledWhoIsGone() {
    auto receiver = std::make_unique<QObject>();
    bool isCalled = false;
    {
        BackgroundThread thread;
        thread.run(receiver.get(), [&isCalled](const GuiCall& callBack) {
            callBack([&isCalled] { isCalled = true; });
        });
    }
    receiver.reset();
    QCoreApplication::processEvents();
    QVERIFY(!isCalled);
}

void TestBackgroundThread::missingMemoryEndsTheTaskAlone() {
    BackgroundThread thread;
    QTest::ignoreMessage(QtWarningMsg, "out of memory beside the window");
    thread.run(this, [](const GuiCall&) { throw std::bad_alloc(); });
    bool isCalled = false;
    thread.run(
        this, [&isCalled](const GuiCall& callBack) { callBack([&isCalled] { isCalled = true; }); });
    QTRY_VERIFY(isCalled);
}

/// The last one: what is given up stays.
void TestBackgroundThread::stuckTaskIsGivenUp() {
    static QSemaphore gate;
    static QSemaphore begun;
    static QSemaphore ended;
    QVERIFY(!BackgroundThread::isAnyAbandoned());
    QElapsedTimer timer;
    {
        BackgroundThread thread;
        thread.run(this, [](const GuiCall&) {
            begun.release();
            gate.acquire();
            ended.release();
        });
        QVERIFY(begun.tryAcquire(1, 10000));
        timer.start();
    }
    QVERIFY(timer.elapsed() < 5000);
    QVERIFY(BackgroundThread::isAnyAbandoned());
    gate.release();
    QVERIFY(ended.tryAcquire(1, 10000));
}

QTEST_MAIN(TestBackgroundThread)
#include "test_backgroundthread.moc"
