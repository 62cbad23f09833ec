// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The manual as it lies beside the program, and what it says of the scanner.

#include "files.h"
#include "media.h"
#include "process.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

class TestManual : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void liesBesideTheProgram();
    void bearsTheDateOfTheSources();
    void scannerOptionsExist();
};

void TestManual::liesBesideTheProgram() {
    const QByteArray manual = readFile(media::programDirectory() + "/help/manual.pdf");
    QVERIFY(manual.startsWith("%PDF-"));
    QVERIFY2(manual.count("/Type /Page\n") >= 5, "it has fewer than five pages");
    QVERIFY2(manual.count("/Subtype /Image") >= 4, "pictures are missing");
}

// Makes the manual anew, for sources of 2026-01-31 23:30:00 UTC, in a time zone of its own.
QByteArray manualMadeIn(const QByteArray& timeZone, const QString& fileName) {
    const QByteArray ownZone = qgetenv("TZ");
    qputenv("TZ", timeZone);
    qputenv("SOURCE_DATE_EPOCH", "1769902200");
    const ProcessResult result =
        runProgram(KESTROVA_MAKEMANUAL, {KESTROVA_MANUAL_TEXT, KESTROVA_PICTURES, fileName});
    qunsetenv("SOURCE_DATE_EPOCH");
    if (ownZone.isNull())
        qunsetenv("TZ");
    else
        qputenv("TZ", ownZone);
    return result.status == 0 ? readFile(fileName) : QByteArray();
}

void TestManual::bearsTheDateOfTheSources() {
    const QTemporaryDir folder;
    const QByteArray manual = manualMadeIn("Asia/Tokyo", folder.filePath("east.pdf"));
    QVERIFY(manual.contains("/CreationDate (D:20260131233000Z)"));
    QVERIFY(manual == manualMadeIn("America/Lima", folder.filePath("west.pdf")));
}

void TestManual::scannerOptionsExist() {
    const QByteArray help = runProgram("kestrova-scan", {"--help"}).output;
    const QString text = QString::fromUtf8(readFile(KESTROVA_MANUAL_TEXT));
    const QRegularExpression option("--[a-z][a-z-]+");
    int count = 0;
    for (auto i = option.globalMatch(text); i.hasNext(); ++count) {
        const QString name = i.next().captured();
        QVERIFY2(name == "--help" || help.contains(name.toUtf8() + ' '), qPrintable(name));
    }
    QVERIFY(count > 10);
}

QTEST_GUILESS_MAIN(TestManual)
#include "test_manual.moc"
