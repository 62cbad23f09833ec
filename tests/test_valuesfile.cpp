// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The values file by itself: what is written is read back, and nothing else is.

#include "files.h"
#include "valuesname.h"
#include "valuesreader.h"
#include "valueswriter.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

#include <limits>
#include <random>

namespace {

/// 40 pictures with numbers of every length.
KeptValues sample() {
    KeptValues values;
    values.recording = {"/cameras/gate 100%\n.mkv", 123456789012, 1795280535327341199,
                        QByteArray(64, 'c')};
    values.measurement.stream.codecName = "h264";
    values.measurement.stream.description.size = {1920, 1080};
    values.measurement.stream.description.pixelAspect = {4, 3};
    values.measurement.stream.description.frameRate = {30000, 1001};
    values.measurement.stream.description.startTime = -0.08;
    values.measurement.stream.origin = -0.08;
    values.settings = {{"measure", "1"}, {"skip", "0"}, {"region", "rectangle 1,2,3,4"}};
    values.measurement.hasPictures = true;
    values.measurement.firstTime = -0.08;
    MotionSeries& series = values.measurement.series;
    std::mt19937 random(1);
    for (int i = 1; i < 40; ++i) {
        series.times.append(-0.08 + i / 25.0);
        series.scores.append(MotionScore{float(random()) / 1e9F});
    }
    series.scores[3].value = std::numeric_limits<float>::denorm_min();
    series.scores[4].value = std::numeric_limits<float>::max();
    series.times[5] = std::numeric_limits<double>::denorm_min();
    series.times[6] = -1e300;
    return values;
}

KeptValues unreadable() {
    KeptValues values;
    values.recording = {"/cameras/broken.mkv", 1, 2, QByteArray(64, '0')};
    values.settings = {{"measure", "1"}};
    values.outcome = DetectionOutcome::CannotOpen;
    values.reason = QStringLiteral("no video\nstream: 100 % of it");
    return values;
}

bool isSame(const Ratio& left, const Ratio& right) {
    return left.numerator == right.numerator && left.denominator == right.denominator;
}

bool isSame(const StreamFacts& left, const StreamFacts& right) {
    return left.codecName == right.codecName && left.description.size == right.description.size &&
           isSame(left.description.pixelAspect, right.description.pixelAspect) &&
           isSame(left.description.frameRate, right.description.frameRate) &&
           left.description.startTime == right.description.startTime &&
           left.isIntraOnly == right.isIntraOnly && left.frameRate == right.frameRate &&
           left.origin == right.origin && left.isRegionEmpty == right.isRegionEmpty;
}

bool isSame(const Measurement& left, const Measurement& right) {
    return isSame(left.stream, right.stream) && left.hasPictures == right.hasPictures &&
           left.firstNumber == right.firstNumber && left.firstTime == right.firstTime &&
           left.series.times == right.series.times && left.series.scores == right.series.scores &&
           left.damage.packets == right.damage.packets &&
           left.damage.promised == right.damage.promised && left.damage.read == right.damage.read;
}

bool isSame(const KeptValues& left, const KeptValues& right) {
    return left.recording == right.recording && left.settings == right.settings &&
           left.outcome == right.outcome && left.reason == right.reason &&
           isSame(left.measurement, right.measurement);
}

/// A file of the first format.
const QByteArray olderText = "# kestrova values 1\n"
                             "# recording: /cameras/gate.mkv\n"
                             "# bytes: 1234\n"
                             "# modified: 5678\n"
                             "# codec: h264\n"
                             "# size: 1920x1080\n"
                             "# pixel-aspect: 4/3\n"
                             "# pace: 30000/1001\n"
                             "# start: -0.08\n"
                             "# intra: yes\n"
                             "# length: 3600.04\n"
                             "# rate: 12.5\n"
                             "# origin: -0.04\n"
                             "# region-empty: no\n"
                             "# measure: 1\n"
                             "# skip: 0\n"
                             "0\t-0.04\t0\n"
                             "1\t0.04\t0.25\n"
                             "# end: finished 2 0\n";

/// The text with the digest that it should have, whatever else is wrong with it.
QByteArray sealed(QByteArray text) {
    text.truncate(text.lastIndexOf(' ') + 1);
    return text + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex() + '\n';
}

using State = ValuesReading::State;

} // namespace

Q_DECLARE_METATYPE(KeptValues)

class TestValuesFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsBackWhatWasWritten_data();
    void readsBackWhatWasWritten();
    void looksAsItIsDescribed();
    void olderFormatIsRead();
    void newerFormatSaysSo();
    void forgedOlderFormatIsFlawed_data();
    void forgedOlderFormatIsFlawed();
    void forgedFilesAreFlawed_data();
    void forgedFilesAreFlawed();
    void damagedFilesAreFlawed_data();
    void damagedFilesAreFlawed();
    void whatIsNoFileIsFlawed();
    void missingIsNoFlaw();
    void lineWithoutEndTakesNoMemory();
    void namesItsRecording();
    void namesAreNeverShared();
    void longNamesAreCut();
    void leavesNothingBesideIt();
    void replacesWhatWasThere();

private:
    QString path(const QString& name = QStringLiteral("a.values")) const {
        return folder.filePath(name);
    }

    ValuesReading readText(const QByteArray& text) const {
        return writeFile(path(), text) ? readValues(path()) : ValuesReading();
    }

    QTemporaryDir folder;
};

void TestValuesFile::readsBackWhatWasWritten_data() {
    QTest::addColumn<KeptValues>("values");
    QTest::newRow("pictures") << sample();
    QTest::newRow("unreadable") << unreadable();
    KeptValues stretch = sample();
    stretch.measurement.firstNumber = 250;
    stretch.measurement.stream.origin = -10.08;
    QTest::newRow("a stretch") << stretch;
    KeptValues still = sample();
    still.outcome = DetectionOutcome::NoUsableTimes;
    still.reason = QStringLiteral("no usable times");
    QTest::newRow("no usable times") << still;
    KeptValues bytes = sample();
    bytes.recording.path = "/\xff\xfe%25\t\x7f\x01/ a ";
    QTest::newRow("odd bytes") << bytes;
}

void TestValuesFile::readsBackWhatWasWritten() {
    QFETCH(KeptValues, values);
    QCOMPARE(writeValues(valuesText(values), path()), QString());
    const ValuesReading reading = readValues(path());
    QCOMPARE(reading.flaw, QString());
    QCOMPARE(reading.state, State::Good);
    QVERIFY(isSame(reading.values, values));
}

void TestValuesFile::looksAsItIsDescribed() {
    KeptValues values = sample();
    values.measurement.series = {{{0.0F}, {0.1F}}, {0.02, 0.1}};
    const QByteArray text = "# kestrova values 2\n"
                            "# recording: /cameras/gate 100%25%0A.mkv\n"
                            "# bytes: 123456789012\n"
                            "# modified: 1795280535327341199\n"
                            "# content: " +
                            QByteArray(64, 'c') +
                            "\n"
                            "# codec: h264\n"
                            "# size: 1920x1080\n"
                            "# pixel-aspect: 4/3\n"
                            "# pace: 30000/1001\n"
                            "# start: -0.08\n"
                            "# intra: no\n"
                            "# rate: 0\n"
                            "# origin: -0.08\n"
                            "# region-empty: no\n"
                            "# measure: 1\n"
                            "# skip: 0\n"
                            "# region: rectangle 1,2,3,4\n"
                            "0\t-0.08\t0\n"
                            "1\t0.02\t0\n"
                            "2\t0.1\t0.1\n"
                            "# end: finished 3 0\n";
    QCOMPARE(valuesText(values), sealed(text));
}

/// As the first version wrote it: it does not say what the recording held.
void TestValuesFile::olderFormatIsRead() {
    const ValuesReading reading = readText(sealed(olderText));
    QCOMPARE(reading.flaw, QString());
    QCOMPARE(reading.values.recording.path, QByteArray("/cameras/gate.mkv"));
    QCOMPARE(reading.values.recording.bytes, qint64(1234));
    QCOMPARE(reading.values.recording.modified, qint64(5678));
    QCOMPARE(reading.values.recording.digest, QByteArray());
    const StreamFacts& stream = reading.values.measurement.stream;
    QCOMPARE(stream.codecName, QByteArray("h264"));
    QCOMPARE(stream.description.startTime, -0.08);
    QCOMPARE(stream.frameRate, 12.5);
    QCOMPARE(stream.origin, -0.04);
    QVERIFY(stream.isIntraOnly);
    const MeasureSettings settings = {{"measure", "1"}, {"skip", "0"}};
    QCOMPARE(reading.values.settings, settings);
    QCOMPARE(reading.values.measurement.series.scores, (QVector<MotionScore>{{0.25F}}));
}

/// Of whatever program: it need not be damaged, and is not taken for that.
void TestValuesFile::newerFormatSaysSo() {
    const ValuesReading reading = readText("# kestrova values 3\n# scores: 2\n0 0 0 0\n");
    QCOMPARE(reading.state, State::Flawed);
    QCOMPARE(reading.flaw, QStringLiteral("its format is newer than this program"));
    QCOMPARE(recordingNamedIn(path()), std::make_optional(QByteArray()));
}

void TestValuesFile::forgedOlderFormatIsFlawed_data() {
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    const QByteArray length = "# length: 3600.04\n";
    QTest::newRow("without length") << length << QByteArray();
    QTest::newRow("length that is no number") << length << QByteArray("# length: long\n");
    QTest::newRow("length with a zero") << length << QByteArray("# length: 3600.040\n");
    QTest::newRow("length elsewhere") << length + "# rate: 12.5\n"
                                      << "# rate: 12.5\n" + length;
    QTest::newRow("with content") << QByteArray("# codec: ")
                                  << QByteArray("# content: none\n# codec: ");
    QTest::newRow("no head") << olderText.mid(21, olderText.indexOf("0\t") - 21) << QByteArray();
}

void TestValuesFile::forgedOlderFormatIsFlawed() {
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QByteArray text = olderText;
    QVERIFY(text.contains(from));
    const ValuesReading reading = readText(sealed(text.replace(from, to)));
    QCOMPARE(reading.state, State::Flawed);
    QVERIFY(!reading.flaw.isEmpty());
}

void TestValuesFile::forgedFilesAreFlawed_data() {
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    const auto row = [](const char* name, const char* from, const char* to) {
        QTest::newRow(name) << QByteArray(from) << QByteArray(to);
    };
    row("no number", "2\t0\t0.5\n", "2\t0\tmany\n");
    row("not a number", "2\t0\t0.5\n", "2\t0\tnan\n");
    row("infinite", "2\t0\t0.5\n", "2\t0\tinf\n");
    row("too large", "2\t0\t0.5\n", "2\t0\t1e39\n");
    row("negative", "2\t0\t0.5\n", "2\t0\t-0.5\n");
    row("negative zero", "2\t0\t0.5\n", "2\t0\t-0\n");
    row("no value", "2\t0\t0.5\n", "2\t0\t\n");
    row("no time", "2\t0\t0.5\n", "2\t\t0.5\n");
    row("no field for the time", "2\t0\t0.5\n", "2\t0.5\n");
    row("time is no number", "2\t0\t0.5\n", "2\tnan\t0.5\n");
    row("time is infinite", "2\t0\t0.5\n", "2\t-inf\t0.5\n");
    row("a comma", "2\t0\t0.5\n", "2\t0\t0,5\n");
    row("a plus sign", "2\t0\t0.5\n", "2\t0\t+0.5\n");
    row("a space", "2\t0\t0.5\n", "2\t0\t 0.5\n");
    row("a field too many", "2\t0\t0.5\n", "2\t0\t0.5\t\n");
    row("CR LF", "2\t0\t0.5\n", "2\t0\t0.5\r\n");
    row("an empty line", "2\t0\t0.5\n", "2\t0\t0.5\n\n");
    row("a number left out", "2\t0\t0.5\n", "");
    row("a number twice", "2\t0\t0.5\n", "1\t0\t0.5\n");
    row("a number that is none", "2\t0\t0.5\n", "2.0\t0\t0.5\n");
    row("a line twice", "2\t0\t0.5\n", "2\t0\t0.5\n2\t0\t0.5\n");
    row("numbers too large", "0\t0\t0\n1\t0\t0.25\n2\t0\t0.5\n3\t0\t0.75\n",
        "9223372036854775800\t0\t0\n9223372036854775801\t0\t0.25\n"
        "9223372036854775802\t0\t0.5\n9223372036854775803\t0\t0.75\n");
    row("first value", "0\t0\t0\n", "0\t0\t1\n");
    row("a remark", "2\t0\t0.5\n", "2\t0\t0.5\n# remark: none\n");
    row("count", "finished 4 ", "finished 5 ");
    row("no count", "finished 4 ", "finished  ");
    row("another end", "finished 4 ", "cannot-open 4 ");
    row("unknown end", "finished 4 ", "ended 4 ");
    row("a reason for nothing", "# end", "# reason: none\n# end");
    row("newer", "values 2\n", "values 3\n");
    row("newer by far", "values 2\n", "values 99999999999\n");
    row("older than the first", "values 2\n", "values 0\n");
    row("of another format", "values 2\n", "values 1\n");
    row("format with a zero", "values 2\n", "values 02\n");
    row("with a length", "# rate: 0\n", "# length: 9\n# rate: 0\n");
    row("head without content", "# content: e3\n", "");
    row("no format", "# kestrova values 2\n", "");
    row("head without bytes", "# bytes: 1\n", "");
    row("head turned around", "# bytes: 1\n# modified: 2\n", "# modified: 2\n# bytes: 1\n");
    row("head with another number", "# bytes: 1\n", "# bytes: 01\n");
    row("head with another word", "# intra: no\n", "# intra: maybe\n");
    row("head with a wrong size", "# size: 4x2\n", "# size: 4 x 2\n");
    row("head with a wrong ratio", "# pace: 0/1\n", "# pace: 0\n");
    row("head with a wrong escape", "/a%25\n", "/a%2\n");
    row("head without a colon", "# codec: ffv1\n", "# codec ffv1\n");
}

/// Each has the digest that belongs to it: somebody took pains.
void TestValuesFile::forgedFilesAreFlawed() {
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    KeptValues values;
    values.recording = {"/a%", 1, 2, "e3"};
    values.measurement.stream.codecName = "ffv1";
    values.measurement.stream.description.size = {4, 2};
    values.measurement.hasPictures = true;
    values.measurement.series = {{{0.25F}, {0.5F}, {0.75F}}, {0, 0, 0}};
    QByteArray text = valuesText(values);
    QCOMPARE(readText(sealed(text)).state, State::Good);
    QVERIFY(text.contains(from));
    const ValuesReading reading = readText(sealed(text.replace(from, to)));
    QCOMPARE(reading.state, State::Flawed);
    QVERIFY(!reading.flaw.isEmpty());
}

void TestValuesFile::damagedFilesAreFlawed_data() {
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"bit", "byte", "cut", "gap", "line", "behind"})
        QTest::newRow(kind) << kind;
}

/// 400 files of each kind, the same in every run.
void TestValuesFile::damagedFilesAreFlawed() {
    QFETCH(QString, kind);
    const QByteArray whole = valuesText(sample());
    const QList<QByteArray> lines = whole.split('\n');
    std::mt19937 random(7);
    const auto below = [&random](int end) { return int(random() % unsigned(end)); };
    int tried = 0;
    while (tried < 400) {
        QByteArray text = whole;
        const int place = below(text.size());
        if (kind == "bit")
            text[place] = char(text[place] ^ (1 << below(8)));
        else if (kind == "byte")
            text[place] = char(random());
        else if (kind == "cut")
            text.truncate(place);
        else if (kind == "gap")
            text.remove(place, 1 + below(50));
        else if (kind == "line")
            text = QList<QByteArray>(lines).mid(0, below(lines.size())).join('\n') + '\n' +
                   lines.mid(below(lines.size())).join('\n');
        else
            text += QByteArray(1 + below(5), char(random()));
        if (text == whole)
            continue;
        ++tried;
        const ValuesReading reading = readText(text);
        QVERIFY2(reading.state == State::Flawed && !reading.flaw.isEmpty(), text.constData());
    }
}

void TestValuesFile::whatIsNoFileIsFlawed() {
    const QString name = path("place.values");
    QVERIFY(QDir().mkdir(name));
    QCOMPARE(readValues(name).state, State::Flawed);
    QVERIFY(QDir().rmdir(name));
    QCOMPARE(mkfifo(QFile::encodeName(name).constData(), 0600), 0);
    QCOMPARE(readValues(name).state, State::Flawed); // and does not wait for somebody who writes
    QVERIFY(QFile::remove(name));
    QVERIFY(QFile::link(name, name));
    QCOMPARE(readValues(name).state, State::Flawed);
    QVERIFY(!readValues(name).flaw.isEmpty());
    QCOMPARE(readText({}).state, State::Flawed);
    QCOMPARE(readText(QByteArray(100000, '\0')).state, State::Flawed);
}

void TestValuesFile::missingIsNoFlaw() {
    QCOMPARE(readValues(path("nowhere/b.values")).state, State::Missing);
}

void TestValuesFile::lineWithoutEndTakesNoMemory() {
    const QByteArray head = valuesText(sample()).split('\t').first();
    QFile file(path());
    QVERIFY(writeFile(path(), head));
    QVERIFY(file.resize(Q_INT64_C(1) << 40)); // sparse: no machine has that memory
    QCOMPARE(readValues(path()).state, State::Flawed);
    QVERIFY(QFile::resize(path(), 0));
}

void TestValuesFile::namesItsRecording() {
    QCOMPARE(writeValues(valuesText(sample()), path()), QString());
    QCOMPARE(*recordingNamedIn(path()), sample().recording.path);
    QVERIFY(writeFile(path(), "# kestrova values 9\n# what: ever\n"));
    QCOMPARE(*recordingNamedIn(path()), QByteArray());
    QVERIFY(writeFile(path(), "RIFF....AVI "));
    QVERIFY(!recordingNamedIn(path()));
    QVERIFY(!recordingNamedIn(folder.path()));
}

void TestValuesFile::namesAreNeverShared() {
    const QString one = valuesPath("kept", "/a/gate.mkv");
    QVERIFY2(one.startsWith("kept/gate.mkv-") && one.endsWith(".values"), qPrintable(one));
    QCOMPARE(valuesPath("kept", "/a/gate.mkv"), one);
    QVERIFY(valuesPath("kept", "/b/gate.mkv") != one);
    QVERIFY(isValuesName(one));
    QVERIFY(isValuesName(partPath("kept", "/a/gate.mkv", 2, 3)));
    for (const char* other :
         {"gate.mp4", "gate.values.mp4", "values", "gate.VALUES", "gate.values~"})
        QVERIFY2(!isValuesName(other), other);
}

void TestValuesFile::longNamesAreCut() {
    const QByteArray name(255, 'n');
    const QString one = valuesPath(folder.path(), "/a/" + name);
    QVERIFY(valuesPath(folder.path(), "/b/" + name) != one);
    QCOMPARE(writeValues(valuesText(sample()), one), QString());
    QCOMPARE(readValues(one).state, State::Good);
}

void TestValuesFile::leavesNothingBesideIt() {
    const QString place = path("own/deep/a.values");
    QCOMPARE(writeValues(valuesText(sample()), place), QString());
    QCOMPARE(QFileInfo(place).dir().entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList{"a.values"});
    QVERIFY(QDir().mkpath(path("own/taken/a.values/b")));
    QVERIFY(!writeValues(valuesText(sample()), path("own/taken/a.values")).isEmpty());
    QCOMPARE(QDir(path("own/taken")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList{"a.values"});
}

void TestValuesFile::replacesWhatWasThere() {
    QCOMPARE(writeValues(valuesText(sample()), path()), QString());
    QCOMPARE(writeValues(valuesText(unreadable()), path()), QString());
    const ValuesReading reading = readValues(path());
    QVERIFY(isSame(reading.values, unreadable()));
}

QTEST_GUILESS_MAIN(TestValuesFile)
#include "test_valuesfile.moc"
