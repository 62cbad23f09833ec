// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "printable.h"

#include "filenamecodec.h"

#include <QFile>
#include <QtTest>

class TestPrintable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void escapes_data();
    void escapes();
    void otherBytesStay();
};

void TestPrintable::escapes_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("ordinary") << QByteArray("garden 1 (%2).mp4") << QByteArray("garden 1 (%2).mp4");
    QTest::newRow("letters") << QByteArray("jard\xc3\xadn \xe9\x9b\xaa \xf0\x9f\x8e\xa5")
                             << QByteArray("jard\xc3\xadn \xe9\x9b\xaa \xf0\x9f\x8e\xa5");
    QTest::newRow("line break") << QByteArray("a\nb\r") << QByteArray("a\\nb\\r");
    QTest::newRow("tab") << QByteArray("a\tb") << QByteArray("a\\tb");
    QTest::newRow("escape") << QByteArray("\x1b]0;title\x07") << QByteArray("\\x1b]0;title\\x07");
    QTest::newRow("delete") << QByteArray("a\x7f") << QByteArray("a\\x7f");
    // One character that starts a control sequence, too.
    QTest::newRow("C1") << QByteArray("\xc2\x9b 2J") << QByteArray("\\xc2\\x9b 2J");
    QTest::newRow("line separator") << QByteArray("\xe2\x80\xa8") << QByteArray("\\xe2\\x80\\xa8");
    QTest::newRow("backslash") << QByteArray("a\\n") << QByteArray("a\\\\n");
    QTest::newRow("empty") << QByteArray() << QByteArray();
}

void TestPrintable::escapes() {
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, shown);
    QCOMPARE(QFile::encodeName(printable(QFile::decodeName(name))), shown);
}

void TestPrintable::otherBytesStay() {
    installFileNameCodec();
    const QByteArray name = "caf\xe9 \x82\xa0 \xf0\x9f\x92\x80.mp4";
    QCOMPARE(QFile::encodeName(printable(QFile::decodeName(name))), name);
}

QTEST_GUILESS_MAIN(TestPrintable)
#include "test_printable.moc"
