// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenamecodec.h"
#include "htmltext.h"

#include <QFile>
#include <QtTest>

class TestHtmlText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installFileNameCodec(); }
    void namesAreText_data();
    void namesAreText();
    void namesAreIsolated();
    void referencesAreEncoded();
};

void TestHtmlText::namesAreText_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("markup") << "<b>&\"'" << QByteArray("&lt;b&gt;&amp;&quot;&#39;");
    QTest::newRow("control") << "a\nb\tc\x1b" << QByteArray("a\\nb\\tc\\x1b");
    QTest::newRow("no UTF-8") << QFile::decodeName("a\xff\xc3") << QByteArray("a\\xff\\xc3");
    QTest::newRow("beyond 16 bits")
        << QString::fromUtf8("\xf0\x9f\x8e\xa5") << QByteArray("\xf0\x9f\x8e\xa5");
    QTest::newRow("right to left") << QString::fromUtf8("a\xe2\x80\xae"
                                                        "b")
                                   << QByteArray("a\\xe2\\x80\\xae"
                                                 "b");
    QTest::newRow("line separator") << QString(QChar(0x2028)) << QByteArray("\\xe2\\x80\\xa8");
}

void TestHtmlText::namesAreText() {
    QFETCH(QString, name);
    QTEST(htmlText(name), "text");
}

void TestHtmlText::namesAreIsolated() {
    QCOMPARE(isolatedText("<a>"), QByteArray("<bdi>&lt;a&gt;</bdi>"));
    QCOMPARE(isolatedText("a", "source"), QByteArray("<bdi class=\"source\">a</bdi>"));
}

void TestHtmlText::referencesAreEncoded() {
    QCOMPARE(fileReference("/r/pictures/a b#1?.png", "/r"),
             QByteArray("pictures/a%20b%231%3F.png"));
    QCOMPARE(fileReference("/r/a:b", "/r"), QByteArray("a%3Ab"));
    QCOMPARE(fileReference("/rest/x.mp4", "/r"), QByteArray("file:///rest/x.mp4"));
    QCOMPARE(fileReference("/x", "/"), QByteArray("x"));
    QCOMPARE(fileReference(QFile::decodeName("/v/\xff\"<.mp4"), "/r"),
             QByteArray("file:///v/%FF%22%3C.mp4"));
}

QTEST_GUILESS_MAIN(TestHtmlText)
#include "test_htmltext.moc"
