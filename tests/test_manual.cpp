// The manual as it lies beside the program, and what it says of the scanner.

#include "files.h"
#include "media.h"
#include "process.h"

#include <QRegularExpression>
#include <QtTest>

class TestManual : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void liesBesideTheProgram();
    void scannerOptionsExist();
};

void TestManual::liesBesideTheProgram() {
    const QByteArray manual = readFile(media::programDirectory() + "/help/manual.pdf");
    QVERIFY(manual.startsWith("%PDF-"));
    QVERIFY2(manual.count("/Type /Page\n") >= 5, "it has fewer than five pages");
    QVERIFY2(manual.count("/Subtype /Image") >= 4, "pictures are missing");
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
