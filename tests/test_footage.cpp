// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner on whole recordings: its clips are those that an independent reference found.

#include "files.h"
#include "footage.h"
#include "media.h"
#include "process.h"
#include "snapshotimage.h"
#include "videodecoder.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// The scanner's arguments for one option set: its keys are the scanner's option names.
QStringList scannerOptions(const QString& folder, const QJsonObject& set) {
    QStringList arguments;
    for (auto option = set.begin(); option != set.end(); ++option) {
        const QString value = option.key() == QLatin1String("mask")
                                  ? folder + '/' + option.value().toString()
                                  : option.value().toVariant().toString();
        arguments += {"--" + option.key(), value};
    }
    return arguments;
}

/// One row for each option set of a folder of recordings.
void addOptionSets(const QString& folder) {
    QTest::addColumn<QString>("video");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    const QString expected = folder + "/expected/";
    const QJsonObject sets = QJsonDocument::fromJson(readFile(expected + "options.json")).object();
    QVERIFY(!sets.isEmpty());
    for (auto set = sets.begin(); set != sets.end(); ++set) {
        const QString video = set.key().section('.', 0, -2);
        QTest::newRow(qPrintable(set.key()))
            << folder + '/' + video << expected + set.key() + ".jsonl"
            << scannerOptions(folder, set.value().toObject());
    }
}

/// The snapshots of some pictures of a recording, by number.
QHash<int, QImage> snapshotsOf(const QString& path, const QSet<int>& numbers) {
    QHash<int, QImage> images;
    VideoDecoder decoder;
    if (!decoder.open(path.toUtf8().constData()))
        return images;
    int number = 0;
    while (const FramePointer frame{decoder.readFrame(true)}) {
        if (numbers.contains(number))
            images.insert(number, snapshotImage(*frame));
        ++number;
    }
    return images;
}

bool isSameTime(const QJsonValue& found, const QJsonValue& expected) {
    return found.isDouble() && qAbs(found.toDouble() - expected.toDouble()) <= 1e-9;
}

} // namespace

class TestFootage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void clipsEqualTheReference_data();
    void clipsEqualTheReference();
    void clipsOfFootageEqualTheReference_data();
    void clipsOfFootageEqualTheReference();
    void sizeChangeIsReadToItsEnd();
};

void TestFootage::clipsEqualTheReference_data() {
    addOptionSets(recordingsDirectory());
}

void TestFootage::clipsEqualTheReference() {
    QFETCH(QString, video);
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    QList<QJsonObject> expected = jsonLines(readFile(name));
    QVERIFY(!expected.isEmpty());
    const QJsonObject total = expected.takeLast();

    const QTemporaryDir pictures;
    const ProcessResult result =
        runProgram("kestrova-scan", options + QStringList{"--quiet", "--format", "jsonl",
                                                          "--snapshots", pictures.path(), video});
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 0);
    QList<QJsonObject> found = jsonLines(result.output);
    const QJsonObject closing = found.takeLast();
    QCOMPARE(closing["state"].toString(), QStringLiteral("finished"));
    QCOMPARE(closing["frames"].toInt(), total["frames"].toInt());
    QCOMPARE(closing["clips"].toInt(), total["clips"].toInt());
    QCOMPARE(found.size(), expected.size());

    QSet<int> numbers;
    for (const QJsonObject& clip : qAsConst(expected))
        numbers.insert(clip["snapshotFrame"].toInt());
    const QHash<int, QImage> images = snapshotsOf(video, numbers);
    for (int i = 0; i < expected.size(); ++i) {
        QCOMPARE(found[i]["index"].toInt(-1), expected[i]["index"].toInt());
        for (const char* key : {"start", "end", "snapshotTime"})
            QVERIFY2(isSameTime(found[i][key], expected[i][key]), key);
        const QImage written(found[i]["snapshot"].toString());
        QVERIFY(!written.isNull());
        QCOMPARE(written.convertToFormat(QImage::Format_RGB32),
                 images[expected[i]["snapshotFrame"].toInt()]);
    }
}

void TestFootage::clipsOfFootageEqualTheReference_data() {
    KESTROVA_REQUIRE_FOOTAGE();
    addOptionSets(footageDirectory());
}

void TestFootage::clipsOfFootageEqualTheReference() {
    clipsEqualTheReference();
}

void TestFootage::sizeChangeIsReadToItsEnd() {
    KESTROVA_REQUIRE_FOOTAGE();
    const QString video = footageDirectory() + "/size-change.ts";
    const ProcessResult result =
        runProgram("kestrova-scan", {"--quiet", "--format", "jsonl", video});
    QCOMPARE(result.status, 0);
    const QJsonObject closing = jsonLines(result.output).last();
    QCOMPARE(closing["state"].toString(), QStringLiteral("finished"));
    QVERIFY(closing["frames"].toInt() > 100);
}

QTEST_GUILESS_MAIN(TestFootage)
#include "test_footage.moc"
