// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenamecodec.h"
#include "filenames.h"

#include <QFile>
#include <QtTest>

class TestFileUrl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installFileNameCodec(); }
    void encoded_data();
    void encoded();
};

void TestFileUrl::encoded_data() {
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("url");
    QTest::newRow("ordinary") << QByteArray("/a/b_mp4_0/0000.avi")
                              << QByteArray("file:////a/b_mp4_0/0000.avi");
    QTest::newRow("number sign") << QByteArray("/a/#2.avi") << QByteArray("file:////a/%232.avi");
    QTest::newRow("question mark")
        << QByteArray("/a/b?c.avi") << QByteArray("file:////a/b%3Fc.avi");
    QTest::newRow("percent sign") << QByteArray("/a/%20%.avi")
                                  << QByteArray("file:////a/%2520%25.avi");
    QTest::newRow("all of them") << QByteArray("/100%?#1") << QByteArray("file:////100%25%3F%231");
    QTest::newRow("spaces") << QByteArray("/a/ b c") << QByteArray("file:////a/%20b%20c");
    QTest::newRow("UTF-8") << QByteArray("/g\xc3\xa4rten\xf0\x9f\x8e\xa5")
                           << QByteArray("file:////g%C3%A4rten%F0%9F%8E%A5");
    QTest::newRow("Latin-1") << QByteArray("/caf\xe9#") << QByteArray("file:////caf%E9%23");
}

void TestFileUrl::encoded() {
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, url);
    const QUrl made = fileUrl(QFile::decodeName(path));
    QVERIFY(made.isValid() && made.isLocalFile());
    QCOMPARE(made.toEncoded(), url);
    // Who opens it gets the file's bytes back.
    QCOMPARE(QByteArray::fromPercentEncoding(made.toEncoded()), "file:///" + path);
    QVERIFY(made.fragment().isEmpty() && made.query().isEmpty());
}

QTEST_GUILESS_MAIN(TestFileUrl)
#include "test_fileurl.moc"
