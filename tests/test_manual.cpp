// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The manual as it lies beside the program, how its pages look, and what it says of the scanner.

#include "files.h"
#include "media.h"
#include "pdfpages.h"
#include "process.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

class TestManual : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void liesBesideTheProgram();
    void bearsTheDateOfTheSources();
    void pagesHoldEnough();
    void headingsHaveTheirText();
    void contentsNameThePages();
    void nothingIsTorn_data();
    void nothingIsTorn();
    void optionsExist();
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

QVector<PdfPage> pagesOfTheManual() {
    return pdfPages(readFile(media::programDirectory() + "/help/manual.pdf"));
}

bool isHeading(const PdfLine& line) {
    return line.size > 10;
}

bool isChapter(const PdfLine& line) {
    return line.size == 15;
}

/// Of a manual with this text.
QVector<PdfPage> pagesOf(const QString& text, const QTemporaryDir& folder) {
    const QString source = folder.filePath("text.html");
    const QString manual = folder.filePath("manual.pdf");
    const bool isMade =
        writeFile(source, text.toUtf8()) &&
        runProgram(KESTROVA_MAKEMANUAL, {source, KESTROVA_PICTURES, manual}).status == 0;
    return isMade ? pdfPages(readFile(manual)) : QVector<PdfPage>();
}

void TestManual::pagesHoldEnough() {
    constexpr int fewest = 15;
    const QVector<PdfPage> pages = pagesOfTheManual();
    QVERIFY(pages.size() >= 5);
    for (int i = 0; i < pages.size(); ++i)
        QVERIFY2(pages[i].lines.size() >= fewest,
                 qPrintable(QString("page %1: %2 lines").arg(i + 1).arg(pages[i].lines.size())));
}

void TestManual::headingsHaveTheirText() {
    const QVector<PdfPage> pages = pagesOfTheManual();
    int headings = 0;
    for (int i = 0; i < pages.size(); ++i) {
        const PdfPage& page = pages[i];
        QVERIFY2(!isHeading(page.lines.last()) || page.lowestPicture < page.lines.last().y,
                 qPrintable(QString("page %1 ends with a heading").arg(i + 1)));
        headings += int(std::count_if(page.lines.begin(), page.lines.end(), isHeading));
    }
    QVERIFY(headings > 10);
}

/// The lines above the first chapter end with what stands at the foot of the chapters' pages.
void TestManual::contentsNameThePages() {
    const QVector<PdfPage> pages = pagesOfTheManual();
    QVector<QByteArray> numbers;
    for (const PdfPage& page : pages) {
        for (int i = int(std::count_if(page.lines.begin(), page.lines.end(), isChapter)); i > 0;
             --i)
            numbers.append(page.number);
    }
    const QVector<PdfLine>& lines = pages.first().lines;
    const int first = int(std::find_if(lines.begin(), lines.end(), isChapter) - lines.begin());
    QVERIFY(numbers.size() > 5 && first > numbers.size());
    for (int i = 0; i < numbers.size(); ++i)
        QVERIFY2(lines[first - numbers.size() + i].glyphs.endsWith(numbers[i]),
                 qPrintable(QString("chapter %1").arg(i + 1)));
}

void TestManual::nothingIsTorn_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("table") << "<table>" + QString("<tr><td>row</td></tr>").repeated(6) + "</table>";
    QTest::newRow("paragraph") << "<p>line" + QString("<br>line").repeated(5) + "</p>";
    QTest::newRow("example") << "<p>like this:</p><pre>" + QString("line\n").repeated(5) + "</pre>";
}

/// Six lines go to the next page, with their heading, where they do not fit, and only there.
void TestManual::nothingIsTorn() {
    QFETCH(QString, text);
    constexpr int fewestBefore = 26; // paragraphs, with which there is room enough,
    constexpr int mostBefore = 33;   // and with which there is hardly any
    const QTemporaryDir folder;
    int place = -1;
    for (int before = fewestBefore; before <= mostBefore; ++before) {
        const QVector<PdfPage> pages =
            pagesOf(QString("<p>before</p>").repeated(before) + "<h3>heading</h3>" + text, folder);
        QVERIFY(!pages.isEmpty());
        const QVector<PdfLine>& lines = pages.last().lines;
        const auto heading = std::find_if(lines.begin(), lines.end(), isHeading);
        QCOMPARE(int(lines.end() - heading), 7);
        place = int(heading - lines.begin());
        QCOMPARE(place, pages.size() == 1 ? before : 0);
        QVERIFY(before > fewestBefore || pages.size() == 1);
    }
    QCOMPARE(place, 0);
}

void TestManual::optionsExist() {
    const QByteArray help = runProgram("kestrova-scan", {"--help"}).output +
                            runProgram("kestrova-archive", {"--help"}).output;
    const QString text = QString::fromUtf8(readFile(KESTROVA_MANUAL_TEXT));
    const QRegularExpression option("--[a-z][a-z-]+");
    int count = 0;
    for (auto i = option.globalMatch(text); i.hasNext(); ++count) {
        const QString name = i.next().captured();
        const bool isThere =
            help.contains(name.toUtf8() + ' ') || help.contains(name.toUtf8() + "[=");
        QVERIFY2(name == "--help" || isThere, qPrintable(name));
    }
    QVERIFY(count > 10);
}

QTEST_GUILESS_MAIN(TestManual)
#include "test_manual.moc"
