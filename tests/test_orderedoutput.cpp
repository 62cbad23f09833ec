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

/// The sections of `count` recordings.
std::vector<OrderedOutput::Section*> sectionsOf(OrderedOutput& output, int count) {
    std::vector<OrderedOutput::Section*> sections;
    for (int i = 0; i < count; ++i)
        sections.push_back(&output.add());
    return sections;
}

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
    OrderedOutput output(buffer, nothingFails);
    const auto sections = sectionsOf(output, 2);
    sections[0]->write("a\n");
    QCOMPARE(buffer.data(), QByteArray("a\n"));
}

void TestOrderedOutput::othersWaitForTheirTurn() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OrderedOutput output(buffer, nothingFails);
    const auto sections = sectionsOf(output, 2);
    sections[1]->write("b\n");
    QCOMPARE(buffer.data(), QByteArray());
    sections[0]->write("a\n");
    sections[0]->finish();
    QCOMPARE(buffer.data(), QByteArray("a\nb\n"));
    sections[1]->write("c\n");
    QCOMPARE(buffer.data(), QByteArray("a\nb\nc\n"));
}

void TestOrderedOutput::recordingsThatEndEarlyAreHeldBack() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OrderedOutput output(buffer, nothingFails);
    const auto sections = sectionsOf(output, 3);
    sections[2]->write("c\n");
    sections[2]->finish();
    sections[1]->write("b\n");
    sections[1]->finish();
    QCOMPARE(buffer.data(), QByteArray());
    sections[0]->write("a\n");
    sections[0]->finish();
    QCOMPARE(buffer.data(), QByteArray("a\nb\nc\n"));
}

void TestOrderedOutput::threadsNeverTearLines() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    constexpr int recordings = 8;
    OrderedOutput output(buffer, nothingFails);
    const auto sections = sectionsOf(output, recordings);
    std::vector<std::thread> threads;
    threads.reserve(recordings);
    for (int i = 0; i < recordings; ++i) {
        threads.emplace_back([i, section = sections[std::size_t(i)]] {
            for (int line = 0; line < 500; ++line)
                section->write(QByteArray::number(i) + ' ' + QByteArray::number(line) + '\n');
            section->finish();
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
    OrderedOutput output(disk, [&](const QString& reason) { reasons += reason; });
    const auto sections = sectionsOf(output, 3);
    sections[0]->write("first\n");
    QCOMPARE(reasons, QStringList());
    sections[1]->write("waits\n");
    sections[0]->write("second\n");
    QCOMPARE(reasons, QStringList("the disk is full"));
    sections[0]->write("third\n");
    sections[2]->write("waits as well\n");
    for (OrderedOutput::Section* section : sections)
        section->finish();
    QCOMPARE(reasons.size(), 1);
    QCOMPARE(disk.refusals, 1);
    QCOMPARE(disk.taken, QByteArray("first\n"));
}

QTEST_GUILESS_MAIN(TestOrderedOutput)
#include "test_orderedoutput.moc"
