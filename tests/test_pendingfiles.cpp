// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pendingfiles.h"

#include "media.h"

#include <QDir>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <sys/stat.h>

namespace {

constexpr int longMilliseconds = 60000;
constexpr int manyFiles = 3000; // more than can be looked at in one go

uint threadCount() {
    return QDir("/proc/self/task").count();
}

} // namespace

class TestPendingFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void findsTheFirstPicture();
    void opensRegularFilesOnly();
    void longSearchFindsTheFirstFileWithAPicture();
    void longSearchFindsNothing();
    void abandonedSearchEndsAfterTheFileInHand();
    void abandonedSearchMayHaveEnded();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    void write(const QString& name, const QByteArray& content);
    QStringList unreadable() const;
    void search(const QStringList& paths);

    QTemporaryDir folder;
    std::unique_ptr<PendingFiles> files;
    QList<QSize> found; ///< the pictures' sizes
    int exhausted = 0;
};

void TestPendingFiles::write(const QString& name, const QByteArray& content) {
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QStringList TestPendingFiles::unreadable() const {
    return QVector<QString>(manyFiles, path("text.avi")).toList();
}

void TestPendingFiles::initTestCase() {
    const QImage picture = media::grey(320, 240, 90);
    QVERIFY(media::encodeGrey(path("a.avi"), {picture, picture}, 5, {"-c:v", "mjpeg"}));
    QVERIFY(QFile::copy(path("a.avi"), path("b.avi")));
    write("text.avi", "no video\n");
    QByteArray noise(4 << 20, Qt::Uninitialized); // takes long to look at
    quint32 state = 1;
    for (char& byte : noise) {
        state = state * 1664525 + 1013904223;
        byte = char(state >> 24);
    }
    write("noise.avi", noise);
}

void TestPendingFiles::init() {
    files = std::make_unique<PendingFiles>();
    found.clear();
    exhausted = 0;
    connect(files.get(), &PendingFiles::found, this,
            [this](const QImage& picture) { found.append(picture.size()); });
    connect(files.get(), &PendingFiles::exhausted, this, [this] { ++exhausted; });
}

void TestPendingFiles::search(const QStringList& paths) {
    files->append(paths);
    files->showNext();
}

void TestPendingFiles::findsTheFirstPicture() {
    search({path("a.avi"), path("text.avi")});
    QCOMPARE(found, QList<QSize>{QSize(320, 240)});
    QCOMPARE(files->current(), path("a.avi"));
    QCOMPARE(files->place(), 1);
    QCOMPARE(files->count(), 2);
    files->showNext();
    QCOMPARE(exhausted, 1);
    QCOMPARE(files->count(), 0);
}

void TestPendingFiles::opensRegularFilesOnly() {
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe.avi")).constData(), 0600), 0);
    QVERIFY(QFile::link(path("pipe.avi"), path("link.avi")));
    const QStringList others = {path("pipe.avi"), path("link.avi"),    "/dev/zero",
                                folder.path(),    path("missing.avi"), QString()};
    for (const QString& name : others) {
        search({name});
        QVERIFY2(found.isEmpty() && files->current() == name, qPrintable(name));
    }
    QCOMPARE(exhausted, others.size());
}

void TestPendingFiles::longSearchFindsTheFirstFileWithAPicture() {
    const QSignalSpy searching(files.get(), SIGNAL(searching(bool)));
    search(unreadable() + QStringList{path("missing.avi"), path("b.avi"), path("a.avi")});
    QVERIFY(files->isSearching());
    QCOMPARE(searching, QList<QVariantList>({{true}}));
    QTRY_COMPARE_WITH_TIMEOUT(found, QList<QSize>{QSize(320, 240)}, longMilliseconds);
    QCOMPARE(searching, QList<QVariantList>({{true}, {false}}));
    QCOMPARE(files->current(), path("b.avi"));
    QCOMPARE(files->place(), manyFiles + 2);
    QCOMPARE(files->takeAll(), QStringList{path("a.avi")});
}

void TestPendingFiles::longSearchFindsNothing() {
    search(unreadable() + QStringList{path("missing.avi")});
    QVERIFY(files->isSearching());
    QTRY_COMPARE_WITH_TIMEOUT(exhausted, 1, longMilliseconds);
    QVERIFY(!files->isSearching() && found.isEmpty());
    QCOMPARE(files->current(), path("missing.avi"));
}

void TestPendingFiles::abandonedSearchEndsAfterTheFileInHand() {
    QStringList paths;
    for (int i = 0; i < 100000; ++i)
        paths.append(path("noise.avi"));
    search(paths);
    QVERIFY(files->isSearching());
    files->takeAll();
    files->showNext();
    QVERIFY(!files->isSearching());
    QCOMPARE(exhausted, 1);
    // All files would take hours.
    QTRY_VERIFY_WITH_TIMEOUT(!PendingFiles::isAnyAbandoned(), longMilliseconds);
}

void TestPendingFiles::abandonedSearchMayHaveEnded() {
    const uint threads = threadCount();
    search(unreadable());
    while (threadCount() > threads)
        QThread::msleep(1); // without the event loop, which would tell
    QVERIFY(files->isSearching());
    files.reset();
    QVERIFY(!PendingFiles::isAnyAbandoned());
}

QTEST_MAIN(TestPendingFiles)
#include "test_pendingfiles.moc"
