// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The recordings that a newcomer tries first: what scripts/run and the README promise of them.

#include "files.h"
#include "footage.h"
#include "process.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const char sample[] = "tests/recordings/garden.mp4";

QByteArray sourceFile(const char* name) {
    return readFile(QDir(KESTROVA_SOURCE).filePath(name));
}

/// What is typed at a prompt of the README, one command or several, and what it shows below them.
struct Example {
    QStringList commands;
    QByteArray output;
};

QVector<Example> readmeExamples() {
    QVector<Example> examples;
    const QRegularExpression block("```console\n([^`]+)```\n");
    auto blocks = block.globalMatch(sourceFile("README.md"));
    while (blocks.hasNext()) {
        Example example;
        for (const QString& line : blocks.next().captured(1).split('\n', Qt::SkipEmptyParts)) {
            if (line.startsWith("$ "))
                example.commands += line.mid(2);
            else
                example.output += line.toUtf8() + '\n';
        }
        examples += example;
    }
    return examples;
}

/// What the commands print, one after another, in the current folder. Null if one of them fails.
QByteArray printedBy(const QStringList& commands) {
    QByteArray output = "";
    for (const QString& command : commands) {
        QStringList words = command.split(' ');
        const ProcessResult result = runProgram(words.takeFirst(), words);
        if (result.status != 0)
            return {};
        output += result.output;
    }
    return output;
}

} // namespace

class TestSample : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isWhatTheScriptStartsWith();
    void isOneClipBetweenTwoPauses();
    void readmeShowsWhatIsPrinted_data();
    void readmeShowsWhatIsPrinted();
};

void TestSample::isWhatTheScriptStartsWith() {
    QVERIFY(QFile::exists(QDir(KESTROVA_SOURCE).filePath(sample)));
    QVERIFY(sourceFile("scripts/run").contains(sample));
}

void TestSample::isOneClipBetweenTwoPauses() {
    const ProcessResult result = runProgram(
        "kestrova-scan", {"--quiet", "--format", "jsonl", QDir(KESTROVA_SOURCE).filePath(sample)});
    QCOMPARE(result.status, 0);
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines.size(), 2);
    const QJsonObject& clip = lines.first();
    QVERIFY(clip["start"].toDouble() > 1.0);
    QVERIFY(clip["end"].toDouble() < lines.last()["seconds"].toDouble() - 5.0);
}

void TestSample::readmeShowsWhatIsPrinted_data() {
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<QByteArray>("output");
    const QVector<Example> examples = readmeExamples();
    QCOMPARE(examples.size(), 6);
    for (const Example& example : examples)
        QTest::newRow(qPrintable(example.commands.value(0))) << example.commands << example.output;
}

void TestSample::readmeShowsWhatIsPrinted() {
    QFETCH(QStringList, commands);
    QFETCH(QByteArray, output);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("tests"));
    QVERIFY(QFile::link(recordingsDirectory(), folder.filePath("tests/recordings")));
    QVERIFY(QDir::setCurrent(folder.path()));
    output.replace("/home/anna/kestrova", QDir::currentPath().toUtf8());
    QCOMPARE(printedBy(commands), output);
    // What is named behind a clip, and what is told of the report.
    for (const char* name : {"pictures/garden.mp4-0000.png", "clips/garden_mp4_0/0000.mkv"})
        QCOMPARE(QFile::exists(name), output.contains(name));
    QCOMPARE(QFile::exists("night/index.html"), commands.first().contains("--report night"));
}

QTEST_GUILESS_MAIN(TestSample)
#include "test_sample.moc"
