// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The recording that a newcomer tries first: what scripts/run and the README promise of it.

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

} // namespace

class TestSample : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isWhatTheScriptStartsWith();
    void isOneClipBetweenTwoPauses();
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

void TestSample::readmeShowsWhatIsPrinted() {
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("tests"));
    QVERIFY(QFile::link(recordingsDirectory(), folder.filePath("tests/recordings")));
    const QRegularExpression example(
        "```sh\nbuild/release/bin/kestrova-scan ([^\n]*)\n```\n\n```\n([^`]*)```\n");
    const auto shown = example.match(sourceFile("README.md"));
    QVERIFY(shown.hasMatch());
    QVERIFY(QDir::setCurrent(folder.path()));
    const ProcessResult result =
        runProgram("kestrova-scan", QStringList{"--quiet"} + shown.captured(1).split(' '));
    QCOMPARE(result.status, 0);
    QCOMPARE(QString(result.output), shown.captured(2));
}

QTEST_GUILESS_MAIN(TestSample)
#include "test_sample.moc"
