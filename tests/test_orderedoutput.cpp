#include "orderedoutput.h"

#include <QBuffer>
#include <QtTest>

#include <thread>
#include <vector>

class TestOrderedOutput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstRecordingIsWrittenAtOnce();
    void othersWaitForTheirTurn();
    void recordingsThatEndEarlyAreHeldBack();
    void threadsNeverTearLines();
};

void TestOrderedOutput::firstRecordingIsWrittenAtOnce() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OrderedOutput output(buffer, 2);
    output.write(0, "a\n");
    QCOMPARE(buffer.data(), QByteArray("a\n"));
}

void TestOrderedOutput::othersWaitForTheirTurn() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OrderedOutput output(buffer, 2);
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
    OrderedOutput output(buffer, 3);
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
    OrderedOutput output(buffer, recordings);
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

QTEST_GUILESS_MAIN(TestOrderedOutput)
#include "test_orderedoutput.moc"
