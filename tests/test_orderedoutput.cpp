// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "orderedoutput.h"

#include <QBuffer>
#include <QtTest>

#include <thread>
#include <vector>

namespace {

void nothingFails(const QString& reason) {
    QFAIL(qPrintable(reason));
}

/// Takes `room` bytes and no more.
class FullDisk : public QIODevice {
public:
    explicit FullDisk(qint64 room)
        : room(room) {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    QByteArray taken;
    int refusals = 0;

protected:
    qint64 readData(char*, qint64) override { return -1; }

    qint64 writeData(const char* bytes, qint64 size) override {
        const qint64 part = qMin(size, room - taken.size());
        taken.append(bytes, int(part));
        if (part > 0)
            return part;
        ++refusals;
        setErrorString("the disk is full");
        return -1;
    }

private:
    qint64 room;
};

} // namespace

class TestOrderedOutput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstRecordingIsWrittenAtOnce();
    void othersWaitForTheirTurn();
    void recordingsThatEndEarlyAreHeldBack();
    void threadsNeverTearLines();
    void firstFailureIsToldOnceAndEndsIt();
};

void TestOrderedOutput::firstRecordingIsWrittenAtOnce() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OrderedOutput output(buffer, 2, nothingFails);
    output.write(0, "a\n");
    QCOMPARE(buffer.data(), QByteArray("a\n"));
}

void TestOrderedOutput::othersWaitForTheirTurn() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OrderedOutput output(buffer, 2, nothingFails);
    output.write(1, "b\n");
    QCOMPARE(buffer.data(), QByteArray());
    output.write(0, "a\n");
    output.finish(0);
    QCOMPARE(buffer.data(), QByteArray("a\nb\n"));
    output.write(1, "c\n");
    QCOMPARE(buffer.data(), QByteArray("a\nb\nc\n"));
}

void TestOrderedOutput::recordingsThatEndEarlyAreHeldBack() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OrderedOutput output(buffer, 3, nothingFails);
    output.write(2, "c\n");
    output.finish(2);
    output.write(1, "b\n");
    output.finish(1);
    QCOMPARE(buffer.data(), QByteArray());
    output.write(0, "a\n");
    output.finish(0);
    QCOMPARE(buffer.data(), QByteArray("a\nb\nc\n"));
}

void TestOrderedOutput::threadsNeverTearLines() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    constexpr int recordings = 8;
    OrderedOutput output(buffer, recordings, nothingFails);
    std::vector<std::thread> threads;
    threads.reserve(recordings);
    for (int i = 0; i < recordings; ++i) {
        threads.emplace_back([&output, i] {
            for (int line = 0; line < 500; ++line)
                output.write(i, QByteArray::number(i) + ' ' + QByteArray::number(line) + '\n');
            output.finish(i);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QByteArray expected;
    for (int i = 0; i < recordings; ++i) {
        for (int line = 0; line < 500; ++line)
            expected += QByteArray::number(i) + ' ' + QByteArray::number(line) + '\n';
    }
    QCOMPARE(buffer.data(), expected);
}

void TestOrderedOutput::firstFailureIsToldOnceAndEndsIt() {
    FullDisk disk(6);
    QStringList reasons;
    OrderedOutput output(disk, 3, [&](const QString& reason) { reasons += reason; });
    output.write(0, "first\n");
    QCOMPARE(reasons, QStringList());
    output.write(1, "waits\n");
    output.write(0, "second\n");
    QCOMPARE(reasons, QStringList("the disk is full"));
    output.write(0, "third\n");
    output.write(2, "waits as well\n");
    for (const int recording : {0, 1, 2})
        output.finish(recording);
    QCOMPARE(reasons.size(), 1);
    QCOMPARE(disk.refusals, 1);
    QCOMPARE(disk.taken, QByteArray("first\n"));
}

QTEST_GUILESS_MAIN(TestOrderedOutput)
#include "test_orderedoutput.moc"
