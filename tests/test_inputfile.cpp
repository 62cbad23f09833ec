// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "inputfile.h"

#include "files.h"
#include "pipewriter.h"

extern "C" {
#include <libavutil/error.h>
}

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <memory>

namespace {

bool never() {
    return false;
}

QByteArray readAll(InputFile& file) {
    QByteArray content;
    QByteArray part(5000, '\0');
    int count = 0;
    while ((count = avio_read(file.bytes(), reinterpret_cast<unsigned char*>(part.data()),
                              part.size())) > 0)
        content += part.left(count);
    return content;
}

int leasedFile = -1;

void giveLeaseBack(int) {
    ::fcntl(leasedFile, F_SETLEASE, F_UNLCK);
}

} // namespace

class TestInputFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void readsARegularFile();
    void readsAFileOnceMoreFromItsStart();
    void theNameIsAPath_data();
    void theNameIsAPath();
    void readsAPipeToItsEnd();
    void waitsForTheFirstWriter();
    void opensALeasedFile();

    void interruptEndsARead();
    void interruptEndsTheWaitForAWriter();
    void interruptEndsTheWaitForMore();
    void saysWhyItCannotOpen();

private:
    QByteArray path(const QString& name) const { return folder.filePath(name).toUtf8(); }

    QTemporaryDir folder;
    QByteArray content;
};

void TestInputFile::initTestCase() {
    QVERIFY(folder.isValid());
    for (int i = 0; i < 50000; ++i)
        content += QByteArray::number(i) + '\n';
    QVERIFY(writeFile(path("numbers"), content));
}

void TestInputFile::readsARegularFile() {
    InputFile file(never);
    QCOMPARE(file.open(path("numbers").constData()), 0);
    QVERIFY(file.canSeek());
    QCOMPARE(avio_size(file.bytes()), std::int64_t(content.size()));
    QCOMPARE(readAll(file), content);
    QVERIFY(avio_feof(file.bytes()));
    QCOMPARE(file.bytes()->error, 0);
}

void TestInputFile::readsAFileOnceMoreFromItsStart() {
    InputFile file(never);
    QCOMPARE(file.open(path("numbers").constData()), 0);
    QCOMPARE(readAll(file), content);
    QCOMPARE(avio_seek(file.bytes(), 100000, SEEK_SET), std::int64_t(100000));
    QCOMPARE(readAll(file), content.mid(100000));
    QCOMPARE(avio_seek(file.bytes(), 0, SEEK_SET), std::int64_t(0));
    QCOMPARE(readAll(file), content);
}

void TestInputFile::theNameIsAPath_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"file:numbers", "pipe:0", "http:numbers", "concat:numbers|numbers",
                             "subfile,,start,1,end,9,,:numbers", "numbers%03d", "num*"})
        QTest::newRow(name) << name;
}

void TestInputFile::theNameIsAPath() {
    QFETCH(QString, name);
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    InputFile missing(never);
    const int result = missing.open(name.toUtf8().constData());
    const bool isWritten = writeFile(name, name.toUtf8());
    InputFile file(never);
    const int opened = file.open(name.toUtf8().constData());
    QDir::setCurrent(before);
    QCOMPARE(result, AVERROR(ENOENT));
    QVERIFY(isWritten);
    QCOMPARE(opened, 0);
    QCOMPARE(readAll(file), name.toUtf8());
}

void TestInputFile::readsAPipeToItsEnd() {
    const QByteArray pipe = path("pipe");
    PipeWriter writer(pipe, content);
    writer.goOn();
    InputFile file(never);
    QCOMPARE(file.open(pipe.constData()), 0);
    QVERIFY(!file.canSeek());
    QCOMPARE(readAll(file), content);
    QCOMPARE(file.bytes()->error, 0);
    QVERIFY(writer.hasWrittenHalf());
}

void TestInputFile::waitsForTheFirstWriter() {
    // Asked for the third time, the pipe has been waited for twice; only then somebody writes.
    const QByteArray pipe = path("late");
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    std::unique_ptr<PipeWriter> writer;
    int asked = 0;
    InputFile file([&] {
        if (++asked == 3) {
            writer = std::make_unique<PipeWriter>(pipe, content);
            writer->goOn();
        }
        return false;
    });
    QCOMPARE(file.open(pipe.constData()), 0);
    QCOMPARE(readAll(file), content);
    QVERIFY(asked > 3);
}

void TestInputFile::opensALeasedFile() {
    // As file servers lease what their clients hold; whoever opens such a file is let in as soon as
    // the lease is given back, and at once refused if he does not wait.
    QVERIFY(writeFile(path("leased"), content));
    leasedFile = ::open(path("leased").constData(), O_RDWR | O_CLOEXEC);
    std::signal(SIGIO, giveLeaseBack);
    if (::fcntl(leasedFile, F_SETLEASE, F_WRLCK) < 0) {
        ::close(leasedFile);
        QSKIP("no leases on this file system");
    }
    InputFile file(never);
    const int result = file.open(path("leased").constData());
    ::close(leasedFile);
    QCOMPARE(result, 0);
    QCOMPARE(readAll(file), content);
}

void TestInputFile::interruptEndsARead() {
    bool interrupted = false;
    InputFile file([&interrupted] { return interrupted; });
    QCOMPARE(file.open(path("numbers").constData()), 0);
    QCOMPARE(avio_r8(file.bytes()), int('0'));
    interrupted = true;
    QVERIFY(readAll(file).size() < content.size());
    QCOMPARE(file.bytes()->error, int(AVERROR_EXIT));
}

void TestInputFile::interruptEndsTheWaitForAWriter() {
    const QByteArray pipe = path("silent");
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    int asked = 0;
    InputFile file([&asked] { return ++asked > 3; });
    QCOMPARE(file.open(pipe.constData()), 0);
    QCOMPARE(readAll(file), QByteArray());
    QCOMPARE(file.bytes()->error, int(AVERROR_EXIT));
    QCOMPARE(asked, 4);
}

void TestInputFile::interruptEndsTheWaitForMore() {
    const QByteArray pipe = path("stalled");
    PipeWriter writer(pipe, content.left(20000));
    int afterAll = 0;
    QByteArray read;
    InputFile file([&] { return read.size() >= 10000 && ++afterAll > 3; });
    QCOMPARE(file.open(pipe.constData()), 0);
    while (read.size() < 10000)
        read += char(avio_r8(file.bytes()));
    QCOMPARE(avio_r8(file.bytes()), 0);
    QCOMPARE(file.bytes()->error, int(AVERROR_EXIT));
    QCOMPARE(read, content.left(10000));
    QVERIFY(afterAll > 3);
}

void TestInputFile::saysWhyItCannotOpen() {
    InputFile missing(never);
    QCOMPARE(missing.open(path("missing").constData()), AVERROR(ENOENT));
    QVERIFY(!missing.bytes());
    QVERIFY(!missing.canSeek());

    InputFile directory(never);
    QCOMPARE(directory.open(folder.path().toUtf8().constData()), 0);
    QCOMPARE(readAll(directory), QByteArray());
    QCOMPARE(directory.bytes()->error, AVERROR(EISDIR));

    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = path("socket");
    std::copy(name.begin(), name.end(), std::begin(address.sun_path));
    const bool isBound =
        ::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    InputFile socket(never);
    const int result = socket.open(name.constData());
    ::close(listener);
    QVERIFY(isBound);
    QCOMPARE(result, AVERROR(ENXIO));
}

QTEST_GUILESS_MAIN(TestInputFile)
#include "test_inputfile.moc"
