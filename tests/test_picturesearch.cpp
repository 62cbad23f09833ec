// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturesearch.h"

#include "media.h"

#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

constexpr unsigned long longMilliseconds = 60000;

} // namespace

class TestPictureSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void grabsTheFirstPicture();
    void opensRegularFilesOnly();
    void findsTheFirstFileWithAPicture();
    void findsNothing();
    void abandonedSearchEndsAfterTheFileInHand();
    void abandonedSearchMayHaveEnded();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    void write(const QString& name, const QByteArray& content);

    QTemporaryDir folder;
};

void TestPictureSearch::write(const QString& name, const QByteArray& content) {
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void TestPictureSearch::initTestCase() {
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

void TestPictureSearch::grabsTheFirstPicture() {
    QImage picture;
    QVERIFY(grabPicture(path("a.avi"), &picture));
    QCOMPARE(picture.size(), QSize(320, 240));
}

void TestPictureSearch::opensRegularFilesOnly() {
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe.avi")).constData(), 0600), 0);
    QVERIFY(QFile::link(path("pipe.avi"), path("link.avi")));
    QImage picture;
    for (const QString& name : {path("pipe.avi"), path("link.avi"), QString("/dev/zero"),
                                folder.path(), path("missing.avi"), QString()})
        QVERIFY2(!grabPicture(name, &picture), qPrintable(name));
    QVERIFY(picture.isNull());
}

void TestPictureSearch::findsTheFirstFileWithAPicture() {
    PictureSearch search({path("text.avi"), path("missing.avi"), path("b.avi"), path("a.avi")});
    search.start();
    QVERIFY(search.wait(longMilliseconds));
    QCOMPARE(search.tried, 3);
    QCOMPARE(search.picture.size(), QSize(320, 240));
}

void TestPictureSearch::findsNothing() {
    PictureSearch search({path("text.avi"), path("missing.avi")});
    search.start();
    QVERIFY(search.wait(longMilliseconds));
    QCOMPARE(search.tried, 2);
    QVERIFY(search.picture.isNull());
}

void TestPictureSearch::abandonedSearchEndsAfterTheFileInHand() {
    QStringList files;
    for (int i = 0; i < 100000; ++i)
        files.append(path("noise.avi"));
    auto search = std::make_unique<PictureSearch>(files);
    search->start();
    PictureSearch::abandon(std::move(search));
    // All files would take hours.
    QTRY_VERIFY_WITH_TIMEOUT(!PictureSearch::isAnyAbandoned(), int(longMilliseconds));
}

void TestPictureSearch::abandonedSearchMayHaveEnded() {
    auto search = std::make_unique<PictureSearch>(QStringList{path("text.avi")});
    search->start();
    QVERIFY(search->wait(longMilliseconds));
    PictureSearch::abandon(std::move(search));
    QVERIFY(!PictureSearch::isAnyAbandoned());
}

QTEST_MAIN(TestPictureSearch)
#include "test_picturesearch.moc"
