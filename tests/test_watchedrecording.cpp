// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What tells that a recording is another one than it was.

#include "files.h"
#include "watchedrecording.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Measured = WatchedRecording::Measured;
using State = WatchedRecording::State;

/// No two of its samples are alike.
QByteArray counted(int bytes) {
    QByteArray content;
    for (int i = 0; content.size() < bytes; ++i)
        content += QByteArray::number(i) + ' ';
    return content.left(bytes);
}

QByteArray hex(const QByteArray& content) {
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
}

} // namespace

class TestWatchedRecording : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void digestIsThatOfNineSamples();
    void smallFilesAreReadWhole();
    void changedSampleIsSeen_data();
    void changedSampleIsSeen();
    void largeFileCostsNothing();
    void whatIsNoFileHasNoStamp();
    void unreadableFileHasNoDigest();
    void unchangedIsTheSame();
    void everyChangeIsSeen_data();
    void everyChangeIsSeen();
    void growthIsNoChangeOfWhatWasMeasured();
    void withoutDigestNothingIsProved();
    void comesBack();

private:
    bool setTime(qint64 second) const {
        const timespec times[2] = {{time_t(second), 0}, {time_t(second), 0}};
        return utimensat(AT_FDCWD, qPrintable(file), times, 0) == 0;
    }
    bool overwrite(const QByteArray& content) const {
        return writeFile(file, content) && setTime(1000);
    }
    RecordingStamp stamp() const { return stampOf(file).value_or(RecordingStamp()); }

    std::unique_ptr<QTemporaryDir> folder;
    QString file;
};

void TestWatchedRecording::init() {
    folder = std::make_unique<QTemporaryDir>();
    file = folder->filePath("a.ts");
    QVERIFY(overwrite(counted(100000)));
}

void TestWatchedRecording::digestIsThatOfNineSamples() {
    const QByteArray content = counted(100000);
    QByteArray samples;
    // (100000 - 4096) / 8 = 11988
    for (const int begin : {0, 11988, 23976, 35964, 47952, 59940, 71928, 83916, 95904})
        samples += content.mid(begin, 4096);
    QCOMPARE(samples.size(), 9 * 4096);
    QCOMPARE(stamp().digest, hex(samples));
    QCOMPARE(stamp().bytes, qint64(100000));
    QCOMPARE(stamp().modified, qint64(1000) * 1000 * 1000 * 1000);
    QCOMPARE(stamp().path, file.toUtf8());
}

void TestWatchedRecording::smallFilesAreReadWhole() {
    for (const int bytes : {0, 1, 4096, 9 * 4096}) {
        QVERIFY(writeFile(file, counted(bytes)));
        QCOMPARE(stamp().digest, hex(counted(bytes)));
    }
}

void TestWatchedRecording::changedSampleIsSeen_data() {
    QTest::addColumn<int>("place");
    for (const int place : {0, 4095, 12000, 24000, 36000, 48000, 60000, 72000, 84000, 95904, 99999})
        QTest::addRow("byte %d", place) << place;
}

void TestWatchedRecording::changedSampleIsSeen() {
    QFETCH(int, place);
    const RecordingStamp before = stamp();
    QByteArray content = counted(100000);
    content[place] = 'x';
    QVERIFY(overwrite(content));
    QCOMPARE(stamp().modified, before.modified);
    QCOMPARE(stamp().bytes, before.bytes);
    QVERIFY(!(stamp() == before));
}

void TestWatchedRecording::largeFileCostsNothing() {
    QVERIFY(QFile::resize(file, Q_INT64_C(1) << 40)); // sparse
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(stamp().bytes, Q_INT64_C(1) << 40);
    QVERIFY(!stamp().digest.isEmpty());
    QVERIFY(timer.elapsed() < 1000);
    QVERIFY(QFile::resize(file, 0));
}

void TestWatchedRecording::whatIsNoFileHasNoStamp() {
    QVERIFY(!stampOf(folder->path()));
    QVERIFY(!stampOf(folder->filePath("missing")));
    QCOMPARE(mkfifo(qPrintable(folder->filePath("pipe")), 0600), 0);
    QVERIFY(!stampOf(folder->filePath("pipe"))); // and nobody is waited for
    QVERIFY(!stampOf("/dev/null"));
}

void TestWatchedRecording::unreadableFileHasNoDigest() {
    if (geteuid() == 0)
        QSKIP("root reads every file");
    QVERIFY(QFile::setPermissions(file, {}));
    QCOMPARE(stamp().bytes, qint64(100000));
    QCOMPARE(stamp().digest, QByteArray());
}

void TestWatchedRecording::unchangedIsTheSame() {
    for (const Measured measured : {Measured::Now, Measured::Before}) {
        WatchedRecording watched(stamp(), measured);
        QCOMPARE(watched.state(), State::Same);
        QCOMPARE(watched.flaw(), QString());
        // Another link, other permissions and a copy that is the same to the last byte are none.
        QVERIFY(
            QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser));
        QCOMPARE(watched.state(), State::Same);
        QVERIFY(QFile::copy(file, file + ".copy"));
        QCOMPARE(std::rename(qPrintable(file + ".copy"), qPrintable(file)), 0);
        QVERIFY(setTime(1000));
        QCOMPARE(watched.state(), State::Same);
    }
}

void TestWatchedRecording::everyChangeIsSeen_data() {
    QTest::addColumn<int>("measured");
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"content", "time", "cut", "longer and other", "gone", "folder"}) {
        QTest::addRow("now, %s", kind) << int(Measured::Now) << kind;
        QTest::addRow("before, %s", kind) << int(Measured::Before) << kind;
    }
    QTest::newRow("before, longer") << int(Measured::Before) << "longer";
}

void TestWatchedRecording::everyChangeIsSeen() {
    QFETCH(int, measured);
    QFETCH(QString, kind);
    WatchedRecording watched(stamp(), Measured(measured));
    QCOMPARE(watched.state(), State::Same);
    const bool isGone = kind == "gone" || kind == "folder";
    if (kind == "content")
        QVERIFY(overwrite(QByteArray(100000, 'x')));
    else if (kind == "time")
        QVERIFY(setTime(1001));
    else if (kind == "cut")
        QVERIFY(QFile::resize(file, 99999) && setTime(1000));
    else if (kind == "longer")
        QVERIFY(overwrite(counted(100001)));
    else if (kind == "longer and other")
        QVERIFY(overwrite(QByteArray(100001, 'x')));
    else
        QVERIFY(QFile::remove(file));
    if (kind == "folder")
        QVERIFY(QDir().mkdir(file));
    QCOMPARE(watched.state(), isGone ? State::Gone : State::Changed);
    QCOMPARE(watched.flaw(),
             QString(isGone ? "it is no longer there" : "it has changed since it was measured"));
}

void TestWatchedRecording::growthIsNoChangeOfWhatWasMeasured() {
    WatchedRecording watched(stamp(), Measured::Now);
    for (const int bytes : {100001, 150000}) {
        QVERIFY(writeFile(file, counted(bytes)));
        QCOMPARE(watched.state(), State::Grown);
        QCOMPARE(watched.flaw(), QString());
    }
    QVERIFY(overwrite(counted(99999)));
    QCOMPARE(watched.state(), State::Changed);
}

void TestWatchedRecording::withoutDigestNothingIsProved() {
    RecordingStamp old = stamp();
    old.digest.clear();
    WatchedRecording before(old, Measured::Before);
    QCOMPARE(before.state(), State::Changed);
    QVERIFY(before.flaw().startsWith("its values have no digest to compare it with"));
    // A disk that fails at a sample has not changed.
    QCOMPARE(WatchedRecording(old, Measured::Now).state(), State::Same);
    QVERIFY(setTime(1001));
    QCOMPARE(WatchedRecording(old, Measured::Now).state(), State::Changed);
}

/// A disk that was away for a moment.
void TestWatchedRecording::comesBack() {
    WatchedRecording watched(stamp(), Measured::Before);
    QVERIFY(QFile::rename(file, file + ".away"));
    QCOMPARE(watched.state(), State::Gone);
    QVERIFY(QFile::rename(file + ".away", file));
    QCOMPARE(watched.state(), State::Same);
}

QTEST_GUILESS_MAIN(TestWatchedRecording)
#include "test_watchedrecording.moc"
