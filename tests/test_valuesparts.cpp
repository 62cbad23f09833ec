// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Parts of a recording as values: joined where they fit, refused where they do not.

#include "files.h"
#include "partfiles.h"
#include "valuesname.h"
#include "valuesparts.h"
#include "valuesreader.h"
#include "valueswriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

namespace {

/// Ten pictures; picture 4 and 5 and so on keep the value before them, as with --skip 1.
KeptValues whole() {
    KeptValues values;
    values.recording = {"/cameras/gate.mkv", 1000, 2000, "e3"};
    values.settings = {{"measure", "1"}, {"skip", "1"}};
    values.measurement.stream.origin = 0.5;
    values.measurement.hasPictures = true;
    values.measurement.firstTime = 0.5;
    values.measurement.series.times = {0.6, 0.7, 0.8, 0.9, 1.0, 1.1, 1.2, 1.3, 1.4};
    for (const float value : {0, 2, 2, 4, 4, 6, 6, 8, 8})
        values.measurement.series.scores.append(MotionScore{value});
    return values;
}

/// One part of that: its own pictures are those from `begin` to before `end`.
KeptValues cut(int index, int count, int begin, int end, int held) {
    KeptValues values = whole();
    constexpr int delay = 2;
    values.part = RecordingPart{index, count};
    values.partFacts = {PartFacts::Kind::Cut, begin, end, delay, held, true};
    Measurement& measured = values.measurement;
    if (begin == end) {
        measured.hasPictures = false;
        measured.series = {};
        return values;
    }
    const int first = std::max(begin - 1, 0);
    const int pictures = std::min(end, 10) - first;
    const MotionSeries all = measured.series;
    measured.firstNumber = first;
    measured.firstTime = first == 0 ? 0.5 : all.times[first - 1];
    measured.series.times = all.times.mid(first, pictures - 1);
    measured.series.scores = all.scores.mid(first, pictures - 1);
    std::fill_n(measured.series.scores.begin(), held, MotionScore{99.0F});
    return values;
}

/// Twelve packets, the first of which show no picture.
QVector<KeptValues> three() {
    return {cut(1, 3, 0, 3, 0), cut(2, 3, 3, 7, 1), cut(3, 3, 7, 12, 1)};
}

KeptValues unread(int index) {
    KeptValues values;
    values.recording = {"/cameras/gate.mkv", 1000, 2000, "e3"};
    values.settings = whole().settings;
    values.part = RecordingPart{index, 2};
    values.outcome = DetectionOutcome::CannotOpen;
    values.reason = QStringLiteral("no video stream");
    return values;
}

using Change = std::function<void(QVector<KeptValues>&)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestValuesParts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void partsAreTheWhole();
    void emptyPartsAreFine();
    void uncutIsInItsFirst();
    void unreadableIsUnreadable();
    void whatDoesNotFitIsRefused_data();
    void whatDoesNotFitIsRefused();
    void partsAreReadBack();
    void filesAreFound();
};

void TestValuesParts::partsAreTheWhole() {
    const JoinedParts joined = joinParts(three());
    QVERIFY2(joined.values, qPrintable(joined.flaw));
    QCOMPARE(valuesText(*joined.values), valuesText(whole()));
    const JoinedParts single = joinParts({cut(1, 1, 0, 12, 0)});
    QVERIFY(single.values);
    QCOMPARE(valuesText(*single.values), valuesText(whole()));
}

void TestValuesParts::emptyPartsAreFine() {
    const JoinedParts joined = joinParts(
        {cut(1, 4, 0, 3, 0), cut(2, 4, 3, 3, 0), cut(3, 4, 3, 12, 1), cut(4, 4, 12, 12, 0)});
    QVERIFY2(joined.values, qPrintable(joined.flaw));
    QCOMPARE(valuesText(*joined.values), valuesText(whole()));
}

void TestValuesParts::uncutIsInItsFirst() {
    KeptValues first = whole();
    first.part = RecordingPart{1, 2};
    first.partFacts.kind = PartFacts::Kind::Whole;
    KeptValues second = unread(2);
    second.outcome = DetectionOutcome::Finished;
    second.reason.clear();
    second.partFacts.kind = PartFacts::Kind::Empty;
    const JoinedParts joined = joinParts({first, second});
    QVERIFY(joined.values);
    QCOMPARE(valuesText(*joined.values), valuesText(whole()));
}

void TestValuesParts::unreadableIsUnreadable() {
    const JoinedParts joined = joinParts({unread(1), unread(2)});
    QVERIFY(joined.values);
    QCOMPARE(joined.values->outcome, DetectionOutcome::CannotOpen);
    QCOMPARE(joined.values->reason, QStringLiteral("no video stream"));
    QVERIFY(!joined.values->part);
}

void TestValuesParts::whatDoesNotFitIsRefused_data() {
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };
    row("none", [](auto& parts) { parts.clear(); });
    row("one is missing", [](auto& parts) { parts.removeAt(1); });
    row("the last is missing", [](auto& parts) { parts.removeLast(); });
    row("another order", [](auto& parts) { std::swap(parts[0], parts[1]); });
    row("of others", [](auto& parts) { parts[1].part->count = 4; });
    row("no part", [](auto& parts) { parts[1].part.reset(); });
    row("another recording", [](auto& parts) { parts[2].recording.path = "/cameras/yard.mkv"; });
    row("it has changed", [](auto& parts) { ++parts[2].recording.modified; });
    row("measured otherwise", [](auto& parts) { parts[1].settings[1].value = "2"; });
    row("a gap", [](auto& parts) { parts[1].partFacts.end = 6; });
    row("another delay", [](auto& parts) { parts[1].partFacts.delay = 1; });
    row("irregular", [](auto& parts) { parts[1].partFacts.isRegular = false; });
    row("irregular first", [](auto& parts) { parts[0].partFacts.isRegular = false; });
    row("another number", [](auto& parts) { ++parts[1].measurement.firstNumber; });
    row("another time", [](auto& parts) { parts[2].measurement.firstTime += 0.1; });
    row("another origin", [](auto& parts) { parts[2].measurement.stream.origin += 0.1; });
    row("numbered", [](auto& parts) { parts[1].measurement.stream.frameRate = 25.0; });
    row("a picture too few", [](auto& parts) {
        parts[2].measurement.series.times.removeLast();
        parts[2].measurement.series.scores.removeLast();
    });
    row("more packets", [](auto& parts) { ++parts[2].partFacts.end; });
    row("unread", [](auto& parts) { parts[1] = unread(2); });
    row("read after all", [](auto& parts) {
        parts = {unread(1), cut(2, 2, 3, 12, 1)};
        parts[0].settings = parts[1].settings;
    });
    row("too many held", [](auto& parts) { parts[2].partFacts.held = 6; });
    row("all at one time", [](auto& parts) {
        for (KeptValues& part : parts) {
            part.measurement.firstTime = part.measurement.stream.origin;
            part.measurement.series.times.fill(part.measurement.stream.origin);
        }
    });
}

void TestValuesParts::whatDoesNotFitIsRefused() {
    QFETCH(Change, change);
    QVector<KeptValues> parts = three();
    QVERIFY(joinParts(parts).values);
    change(parts);
    const JoinedParts joined = joinParts(parts);
    QVERIFY(!joined.values);
    QVERIFY(!joined.flaw.isEmpty());
}

void TestValuesParts::partsAreReadBack() {
    QTemporaryDir folder;
    const QString path = folder.filePath("a.values");
    for (const KeptValues& part : three() + QVector<KeptValues>{unread(1)}) {
        QCOMPARE(writeValues(valuesText(part), path), QString());
        const ValuesReading reading = readValues(path);
        QCOMPARE(reading.flaw, QString());
        QVERIFY(reading.values.part);
        QCOMPARE(valuesText(reading.values), valuesText(part));
    }
    // A head that this program would not have written.
    QVERIFY(valuesText(three()[1]).contains("# part: 2/3 cut 3 7 2 1 yes\n"));
    for (const char* part : {"2/3 cut 3 7 2 1", "2/3 cut 3 7 2 1 no way", "2 cut 3 7 2 1 yes",
                             "2/3 slice", "02/3 cut 3 7 2 1 yes", ""}) {
        QByteArray text = valuesText(three()[1]);
        QVERIFY(writeFile(path, text.replace("2/3 cut 3 7 2 1 yes", part)));
        QCOMPARE(readValues(path).state, ValuesReading::State::Flawed);
        QVERIFY2(!readValues(path).flaw.contains("digest"), qPrintable(readValues(path).flaw));
    }
}

void TestValuesParts::filesAreFound() {
    QTemporaryDir folder;
    const QByteArray gate = "/cameras/gate.mkv";
    const QByteArray yard = "/cameras/yard [1]*.mkv";
    const auto add = [&folder](const QByteArray& recording, int index, int count) {
        return writeFile(partPath(folder.path(), recording, index, count), "x");
    };
    QVERIFY(add(gate, 1, 2) && add(gate, 2, 2) && add(gate, 2, 3) && add(gate, 3, 3));
    for (int i = 1; i <= 12; ++i)
        QVERIFY(add(yard, i, 12));
    QVERIFY(writeFile(valuesPath(folder.path(), gate), "x"));
    const PartFiles files(folder.path());
    QCOMPARE(files.counts(gate), QVector<int>{2});
    QCOMPARE(files.counts(yard), QVector<int>{12});
    QCOMPARE(files.counts("/cameras/none.mkv"), QVector<int>());
    QVERIFY(add(gate, 1, 3));
    QCOMPARE(PartFiles(folder.path()).counts(gate), (QVector<int>{2, 3}));
    QCOMPARE(PartFiles(folder.filePath("none")).counts(gate), QVector<int>());
}

QTEST_GUILESS_MAIN(TestValuesParts)
#include "test_valuesparts.moc"
