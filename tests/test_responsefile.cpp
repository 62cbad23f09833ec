// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenamecodec.h"
#include "files.h"
#include "media.h"
#include "process.h"
#include "responsefile.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// Arguments that a file holds.
class TestResponseFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void wordsAreSeparated_data();
    void wordsAreSeparated();
    void wordsStandWhereTheFileIsNamed();
    void bytesStayWhatTheyAre();
    void valuesAreNoFiles();
    void nothingIsAFileBehindTwoDashes();
    void flawsAreTold_data();
    void flawsAreTold();
    void sizeIsLimited();
    void pipesAreRead();
    void theProgramsNameIsNoFile();
    void scannerTakesThem();
    void scannerRefusesThem();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    ExpandedArguments expanded(const QStringList& arguments) const {
        return expandResponseFiles(QStringList{"kestrova-scan"} + arguments);
    }
    QStringList wordsOf(const QByteArray& text) const;

    QTemporaryDir folder;
};

void TestResponseFile::initTestCase() {
    QVERIFY(folder.isValid());
}

QStringList TestResponseFile::wordsOf(const QByteArray& text) const {
    if (!writeFile(path("args"), text))
        return {"cannot be written"};
    const ExpandedArguments result = expanded({"@" + path("args")});
    return result.error.isEmpty() ? result.arguments.mid(1) : QStringList{result.error};
}

void TestResponseFile::wordsAreSeparated_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("words");
    QTest::addRow("one line") << QByteArray("--merge 0 a.mp4\n")
                              << QStringList{"--merge", "0", "a.mp4"};
    QTest::addRow("a line each") << QByteArray("--quiet\na.mp4\nb.mp4")
                                 << QStringList{"--quiet", "a.mp4", "b.mp4"};
    QTest::addRow("all white space")
        << QByteArray(" a\tb\vc\fd\r\ne \n\n f\n") << QStringList{"a", "b", "c", "d", "e", "f"};
    QTest::addRow("nothing") << QByteArray(" \n") << QStringList();
    QTest::addRow("no byte") << QByteArray() << QStringList();
    QTest::addRow("double quotes")
        << QByteArray("\"my night/a b.mp4\" c") << QStringList{"my night/a b.mp4", "c"};
    QTest::addRow("single quotes") << QByteArray("'a\nb' c") << QStringList{"a\nb", "c"};
    QTest::addRow("quotes in quotes")
        << QByteArray("'say \"hi\"' \"don't\"") << QStringList{"say \"hi\"", "don't"};
    QTest::addRow("quotes in a word")
        << QByteArray("--report='my night'x") << QStringList{"--report=my nightx"};
    QTest::addRow("empty words") << QByteArray("'' a \"\"") << QStringList{"", "a", ""};
    QTest::addRow("backslashes") << QByteArray("a\\ b \\\\ \\\" \\'c \\\n")
                                 << QStringList{"a b", "\\", "\"", "'c", "\n"};
    QTest::addRow("backslashes in quotes")
        << QByteArray("\"a\\\"b\" 'it\\'s'") << QStringList{"a\"b", "it's"};
    QTest::addRow("a mark of UTF-8")
        << QByteArray("\xef\xbb\xbf--quiet a.mp4\r\n") << QStringList{"--quiet", "a.mp4"};
    QTest::addRow("no comments") << QByteArray("# a") << QStringList{"#", "a"};
    QTest::addRow("no patterns") << QByteArray("*.mp4 ~ $HOME")
                                 << QStringList{"*.mp4", "~", "$HOME"};
}

void TestResponseFile::wordsAreSeparated() {
    QFETCH(QByteArray, text);
    QFETCH(QStringList, words);
    QCOMPARE(wordsOf(text), words);
}

void TestResponseFile::wordsStandWhereTheFileIsNamed() {
    QVERIFY(writeFile(path("one"), "b c"));
    QVERIFY(writeFile(path("two"), "e"));
    const ExpandedArguments result = expanded({"a", "@" + path("one"), "d", "@" + path("two")});
    QCOMPARE(result.error, QString());
    QCOMPARE(result.arguments, QStringList({"kestrova-scan", "a", "b", "c", "d", "e"}));
    QCOMPARE(result.files, QStringList({path("one"), path("two")}));
}

void TestResponseFile::bytesStayWhatTheyAre() {
    const QByteArray name = "caf\xe9-\xff\xfe-\xc3\xa9.mp4"; // the end alone is UTF-8
    QCOMPARE(QFile::encodeName(wordsOf(name).value(0)), name);
}

void TestResponseFile::valuesAreNoFiles() {
    QVERIFY(writeFile(path("args"), "x"));
    const QString named = "@" + path("args");
    for (const char* option : {"--report", "-report", "--list", "--merge"}) {
        const QStringList given = {option, named};
        QCOMPARE(expanded(given).arguments.mid(1), given);
    }
    QCOMPARE(expanded({"--report=night", named}).arguments.mid(1),
             QStringList({"--report=night", "x"}));
    QCOMPARE(expanded({"--quiet", named}).arguments.mid(1), QStringList({"--quiet", "x"}));
    // A value that looks like an option is one all the same.
    QCOMPARE(expanded({"--report", "--list", named}).arguments.mid(1),
             QStringList({"--report", "--list", "x"}));
    QVERIFY(writeFile(path("args"), "--report @night a.mp4 --report"));
    QCOMPARE(expanded({named, "@dir"}).arguments.mid(1),
             QStringList({"--report", "@night", "a.mp4", "--report", "@dir"}));
}

void TestResponseFile::nothingIsAFileBehindTwoDashes() {
    QVERIFY(writeFile(path("args"), "a -- @b"));
    const QString named = "@" + path("args");
    QCOMPARE(expanded({"--", named}).arguments.mid(1), QStringList({"--", named}));
    QCOMPARE(expanded({named, "@c"}).arguments.mid(1), QStringList({"a", "--", "@b", "@c"}));
    QCOMPARE(expanded({"--", "--report", named}).arguments.mid(1),
             QStringList({"--", "--report", named}));
}

void TestResponseFile::flawsAreTold_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("flaw");
    QTest::addRow("null bytes") << QByteArray("a\0b", 3) << "it has null bytes";
    QTest::addRow("a recording") << QByteArray("\0\0\0\x20"
                                               "ftypisom",
                                               12)
                                 << "it has null bytes";
    QTest::addRow("double quote") << QByteArray("\"a b") << "a quotation mark is not closed";
    QTest::addRow("single quote") << QByteArray("don't") << "a quotation mark is not closed";
    QTest::addRow("backslash") << QByteArray("a\\") << "a backslash at its end";
    QTest::addRow("another file") << QByteArray("a @more") << "it names another such file, '@more'";
}

void TestResponseFile::flawsAreTold() {
    QFETCH(QByteArray, text);
    QFETCH(QString, flaw);
    QVERIFY(writeFile(path("args"), text));
    const QString error = expanded({"@" + path("args")}).error;
    QVERIFY2(error.startsWith("cannot take arguments from '@" + path("args") + "': " + flaw),
             qPrintable(error));
}

void TestResponseFile::sizeIsLimited() {
    QByteArray most(16 << 20, 'x');
    QCOMPARE(wordsOf(most).value(0).size(), most.size());
    QVERIFY(wordsOf(most + '\n').value(0).endsWith("it has more than 16 MiB"));
    QVERIFY(expanded({"@/dev/zero"}).error.endsWith("it has more than 16 MiB"));
}

void TestResponseFile::pipesAreRead() {
    QProcess shell;
    shell.start("bash", {"-c", R"("$0" --names @<(for i in {1..9999}; do echo "n$i.mp4"; done))",
                         media::programDirectory() + "/kestrova-scan"});
    const ProcessResult result = endOf(shell);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output.count('\0'), 9999);
    QVERIFY(result.output.endsWith(QByteArray("n9999.mp4\0", 10)));
}

void TestResponseFile::theProgramsNameIsNoFile() {
    QCOMPARE(expandResponseFiles({"@nowhere"}).error, QString());
    QCOMPARE(expandResponseFiles({}).arguments, QStringList());
}

void TestResponseFile::scannerTakesThem() {
    QVERIFY(media::encode(media::crossingBox(1, 0, 1) +
                          QStringList{"-c:v", "mpeg4", path("@a b.mp4")}));
    const QString video = path("@a b.mp4");
    QVERIFY(writeFile(path("night.args"),
                      "--quiet --format\njsonl '" + QFile::encodeName(video) + "'\n"));
    const ProcessResult direct = runProgram("kestrova-scan", {"--quiet", "--format=jsonl", video});
    QCOMPARE(direct.status, 0);
    QVERIFY(!direct.output.isEmpty());
    QVERIFY(runProgram("kestrova-scan", {"@" + path("night.args")}) == direct);

    QProcess there;
    there.setWorkingDirectory(folder.path());
    const QString scanner = media::programDirectory() + "/kestrova-scan";
    for (const QStringList& name : {QStringList{"./@a b.mp4"}, QStringList{"--", "@a b.mp4"}}) {
        there.start(scanner, QStringList{"--names"} + name);
        const ProcessResult named = endOf(there);
        QCOMPARE(named.status, 0);
        QCOMPARE(named.output, QFile::encodeName(name.last()) + '\0');
    }
}

void TestResponseFile::scannerRefusesThem() {
    const auto complaintOf = [](const QStringList& arguments) {
        const ProcessResult result = runProgram("kestrova-scan", arguments);
        return result.status == 2 && result.output.isEmpty() ? result.errors : QByteArray();
    };
    QVERIFY(complaintOf({"@" + path("missing")})
                .startsWith("kestrova-scan: cannot take arguments from '@" +
                            QFile::encodeName(path("missing")) + "': No such file or directory\n"));
    QVERIFY(complaintOf({"@" + folder.path()}).contains("irectory"));
    QVERIFY(complaintOf({"@"}).contains("no file is named"));
    QVERIFY(writeFile(path("args"), "--unheard-of a.mp4"));
    QVERIFY(complaintOf({"@" + path("args")}).contains("unheard-of"));
    QVERIFY(writeFile(path("args"), "a.mp4"));
    QVERIFY(complaintOf({"--trace", path("args"), "@" + path("args")})
                .contains("--trace would overwrite the response file"));
    QCOMPARE(readFile(path("args")), QByteArray("a.mp4"));
}

int main(int argc, char* argv[]) {
    installFileNameCodec();
    QCoreApplication application(argc, argv);
    TestResponseFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_responsefile.moc"
