// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "escaping.h"
#include "filenamecodec.h"

#include <QFile>
#include <QProcess>
#include <QtTest>

class TestEscaping : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installFileNameCodec(); }
    void shellWordsComeBack_data();
    void shellWordsComeBack();
};

void TestEscaping::shellWordsComeBack_data() {
    QTest::addColumn<QByteArray>("bytes");
    for (const char* name :
         {"plain.mp4", "a b", "it's", "$(touch x) `y` \"z\" \\n", "-dash", "line\nbreak\t's \\x",
          "a\xe2\x80\xae pm", "\xc2\x9b\x9b\r", "no\xffUTF-8 '", "\xf0\x9f\x8e\xa5"})
        QTest::addRow("%s", QByteArray(name).toPercentEncoding(" ").constData())
            << QByteArray(name);
}

void TestEscaping::shellWordsComeBack() {
    QFETCH(QByteArray, bytes);
    const QString command = "printf %s " + shellWord(QFile::decodeName(bytes));
    QProcess shell;
    shell.start("bash", {"-c", command});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.readAll(), bytes);
}

QTEST_GUILESS_MAIN(TestEscaping)
#include "test_escaping.moc"
