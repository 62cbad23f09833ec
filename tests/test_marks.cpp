// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "files.h"
#include "marks.h"

#include <QTemporaryDir>
#include <QtTest>

#include <random>

namespace {

const QByteArray clip =
    R"({"recording":"night/gate.avi","size":8,"modified":1700000000123,"number":3,)"
    R"("start":-2.5,"end":13.440000000000001,"mark":"keep"})";

const QByteArray ownPart = R"({"recording":"night/gate.avi","size":8,"modified":1700000000123,)"
                           R"("start":-2.5,"end":10,"offset":0})";
const QByteArray nextPart = R"({"recording":"night/next.avi","size":9,"modified":1700000010123,)"
                            R"("start":0,"end":3.44,"offset":10})";

QByteArray file(const QByteArray& clips) {
    return R"({"kestrova":"marks","version":1,"clips":[)" + clips + "]}";
}

/// The clip with another value of a field.
QByteArray with(const QByteArray& before, const QByteArray& after) {
    QByteArray changed = clip;
    return changed.replace(before, after);
}

QByteArray ofParts(const QByteArray& parts) {
    return with(R"("mark")", R"("parts":[)" + parts + R"(],"mark")");
}

} // namespace

class TestMarks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keptClipsAreRead();
    void seenOnesAreNotTaken();
    void recordingsAreNamedOnce();
    void bytesThatAreNoText();
    void partsAreRead();
    void whatIsUnknownIsSkipped();
    void flaws_data();
    void flaws();
    void filesThatAreNone_data();
    void filesThatAreNone();
    void deepAndLarge();
    void filesAreRead();
    void anyBytes();
};

void TestMarks::keptClipsAreRead() {
    const Marks marks = marksOf(file(clip));
    QCOMPARE(marks.error, QString());
    QCOMPARE(marks.recordings.size(), 1);
    QCOMPARE(marks.recordings[0].video, QString("night/gate.avi"));
    QCOMPARE(marks.recordings[0].bytes, 8);
    QCOMPARE(marks.recordings[0].modified, 1700000000123);
    QCOMPARE(marks.clips.size(), 1);
    QCOMPARE(marks.clips[0].recording, 0);
    QCOMPARE(marks.clips[0].number, 3);
    QVERIFY(marks.clips[0].start == -2.5);
    QVERIFY(marks.clips[0].end == 13.440000000000001); // to the last bit
    QVERIFY(marks.clips[0].parts.isEmpty());
    QVERIFY(marksOf(file("")).clips.isEmpty());
    QCOMPARE(marksOf(file("")).error, QString());
}

void TestMarks::seenOnesAreNotTaken() {
    const Marks marks = marksOf(file(with("keep", "seen") + "," + with(":3,", ":4,")));
    QCOMPARE(marks.error, QString());
    QCOMPARE(marks.clips.size(), 1);
    QCOMPARE(marks.clips[0].number, 4);
    QVERIFY(marksOf(file(with("keep", "seen"))).recordings.isEmpty());
}

void TestMarks::recordingsAreNamedOnce() {
    const Marks marks = marksOf(file(clip + "," + with("gate", "yard") + "," + with(":3,", ":0,")));
    QCOMPARE(marks.error, QString());
    QCOMPARE(marks.recordings.size(), 2);
    QCOMPARE(marks.clips[0].recording, 0);
    QCOMPARE(marks.clips[1].recording, 1);
    QCOMPARE(marks.clips[2].recording, 0);
    QCOMPARE(marksOf(file(clip + "," + clip)).clips.size(), 1);
}

void TestMarks::bytesThatAreNoText() {
    const QByteArray name = "g\xe4te.avi";
    const Marks marks =
        marksOf(file(with(R"("night/gate.avi")", "\"g\xef\xbf\xbdte.avi\",\"recordingBytes\":\"" +
                                                     name.toBase64() + '"')));
    QCOMPARE(marks.error, QString());
    QCOMPARE(marks.recordings[0].video, QFile::decodeName(name));
}

void TestMarks::partsAreRead() {
    const Marks marks = marksOf(file(ofParts(ownPart + "," + nextPart)));
    QCOMPARE(marks.error, QString());
    QCOMPARE(marks.recordings.size(), 2);
    QCOMPARE(marks.recordings[1].video, QString("night/next.avi"));
    QCOMPARE(marks.recordings[1].bytes, 9);
    const QVector<MarkedPart>& parts = marks.clips[0].parts;
    QCOMPARE(parts.size(), 2);
    QCOMPARE(parts[0].recording, 0);
    QCOMPARE(parts[1].recording, 1);
    QVERIFY(parts[0].start == -2.5 && parts[0].end == 10.0 && parts[0].offset == 0.0);
    QVERIFY(parts[1].start == 0.0 && parts[1].end == 3.44 && parts[1].offset == 10.0);
    QVERIFY(marksOf(file(clip)).clips[0].parts.isEmpty());
}

void TestMarks::whatIsUnknownIsSkipped() {
    const Marks marks =
        marksOf(R"({"more":[1,{"x":null}],"kestrova":"marks","version":1,"clips":[)" +
                with(R"("mark")", R"("note":"a cat","mark")") + "]}");
    QCOMPARE(marks.error, QString());
    QCOMPARE(marks.clips.size(), 1);
}

void TestMarks::flaws_data() {
    QTest::addColumn<QByteArray>("clips");
    QTest::addColumn<QString>("flaw");
    const QByteArray name = R"("night/gate.avi")";
    const QString noName = "\"recording\" is no name of a file";
    const QString noWhole = "\"%1\" is no whole number, or out of its range";
    const QString noNumber = "\"%1\" is no number, or out of its range";
    const auto row = [](const char* what, const QByteArray& clips, const QString& flaw) {
        QTest::newRow(what) << clips << flaw;
    };
    row("no object", "7", "it is no object");
    row("no name", with(name, "null"), "\"recording\" is no text");
    row("a number for a name", with(name, "7"), "\"recording\" is no text");
    row("empty name", with(name, R"("")"), noName);
    row("null character", with(name, R"("/etc/passwd\u0000.avi")"), noName);
    row("null byte", with(name, R"("a","recordingBytes":"YQBi")"), noName);
    row("no base 64", with(name, R"("a","recordingBytes":"")"), noName);
    row("negative size", with(":8,", ":-8,"), noWhole.arg("size"));
    row("size of half a byte", with(":8,", ":8.5,"), noWhole.arg("size"));
    row("huge size", with(":8,", ":1e300,"), noWhole.arg("size"));
    row("size as a text", with(":8,", R"(:"8",)"), noWhole.arg("size"));
    row("time as a list", with("1700000000123", "[]"), noWhole.arg("modified"));
    row("negative number", with(":3,", ":-3,"), noWhole.arg("number"));
    row("number beyond an int", with(":3,", ":2147483648,"), noWhole.arg("number"));
    row("start as a truth", with("-2.5", "true"), noNumber.arg("start"));
    row("far end", with("13.440000000000001", "1e10"), noNumber.arg("end"));
    row("another mark", with("keep", "drop"), "\"mark\" is neither \"keep\" nor \"seen\"");
    row("no mark", with(R"(,"mark":"keep")", ""), "\"mark\" is no text");
    row("parts that are none", with(R"("mark")", R"("parts":{},"mark")"),
        "\"parts\" is no list of parts");
    row("one part", ofParts(ownPart), "\"parts\" is no list of parts");
    row("parts of others",
        ofParts(nextPart + "," + QByteArray(ownPart).replace(R"("offset":0)", R"("offset":10)")),
        "\"parts\" is no list of parts");
    row("a part without a size", ofParts(ownPart + R"(,{"recording":"night/next.avi"})"),
        "\"size\" is no whole number, or out of its range");
    row("parts that run backwards", ofParts(ownPart + "," + nextPart + "," + ownPart),
        "\"offset\" of a part is before that of the one before it");
    row("a part that is there twice",
        ofParts(ownPart + "," + QByteArray(ownPart).replace(R"("offset":0)", R"("offset":10)")),
        "\"parts\" names a recording twice");
    row("a part of another size",
        ofParts(QByteArray(ownPart).replace(":8,", ":7,") + "," + nextPart),
        "its recording has another size or time than before");
    row("another of its number", clip + "," + with("-2.5", "-2.25"), "another clip has its number");
    row("another size", clip + "," + with(":8,", ":9,").replace(":3,", ":4,"),
        "its recording has another size or time than before");
}

void TestMarks::flaws() {
    QFETCH(QByteArray, clips);
    QFETCH(QString, flaw);
    const Marks marks = marksOf(file(clips));
    const int place = clips.startsWith(clip) ? 2 : 1;
    QCOMPARE(marks.error, QStringLiteral("clip %1 of it: %2").arg(place).arg(flaw));
    QVERIFY(marks.clips.isEmpty() && marks.recordings.isEmpty());
}

void TestMarks::filesThatAreNone_data() {
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    QTest::newRow("nothing") << QByteArray() << "it is no file of marks: illegal value";
    QTest::newRow("a list") << QByteArray("[]") << "it is no file of marks";
    QTest::newRow("another") << QByteArray(R"({"video":"a"})") << "it is no file of marks";
    QTest::newRow("another name") << QByteArray(R"({"kestrova":"session","version":1,"clips":[]})")
                                  << "it is no file of marks";
    QTest::newRow("version 2") << file("").replace(":1", ":2")
                               << "it is of a version that cannot be read here";
    QTest::newRow("version as a text")
        << file("").replace(":1", R"(:"1")") << "it is of a version that cannot be read here";
    QTest::newRow("no clips") << file("").replace("clips", "klips") << "it has no list of clips";
    QTest::newRow("not a number") << file(with("-2.5", "NaN"))
                                  << "it is no file of marks: illegal number";
    QTest::newRow("an endless end")
        << file(with("13.440000000000001", "1e999")) << "it is no file of marks: illegal number";
    QTest::newRow("cut off") << file(clip).left(60)
                             << "it is no file of marks: unterminated string";
}

void TestMarks::filesThatAreNone() {
    QFETCH(QByteArray, json);
    const QString text = marksOf(json).error; // where in the bytes is the library's own business
    QTEST(text.section(QStringLiteral(" at byte"), 0, 0), "error");
}

void TestMarks::deepAndLarge() {
    const QByteArray deep = QByteArray(2000000, '[');
    QVERIFY(marksOf(deep).error.startsWith("it is no file of marks: "));
    QVERIFY(!marksOf(R"({"kestrova":"marks","version":1,"x":)" + deep).error.isEmpty());
    QByteArray many;
    for (int i = 0; i <= mostMarks; ++i)
        many += i > 0 ? ",0" : "0";
    QCOMPARE(marksOf(file(many)).error, QString("it has more than 100000 clips"));
}

void TestMarks::filesAreRead() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("marks.json");
    QCOMPARE(readMarks(path).error, QString("No such file or directory"));
    QVERIFY(!readMarks(folder.path()).error.isEmpty());
    QVERIFY(writeFile(path, "\n" + file(clip) + "\n"));
    QCOMPARE(readMarks(path).clips.size(), 1);
    QVERIFY(writeFile(path, file(clip) + QByteArray(int(mostMarksBytes), ' ')));
    QCOMPARE(readMarks(path).error, QString("it is larger than a file of marks can be"));
    QCOMPARE(readMarks("/dev/zero").error, QString("it is larger than a file of marks can be"));
}

/// Bytes that somebody has changed are told of, or give marks of which all holds that holds of any.
void TestMarks::anyBytes() {
    std::mt19937 random(7);
    const QByteArray good = file(ofParts(ownPart + "," + nextPart) + "," + with("gate", "yard"));
    const QByteArray pieces[] = {"\"", "{",       "}", "[",  "]",    ",",
                                 ":",  "\\u0000", "-", "e9", "null", "\xff"};
    int readable = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray bad = good;
        for (int i = 1 + int(random() % 3); i > 0; --i) {
            const int place = int(random() % unsigned(bad.size()));
            if (random() % 2 == 0)
                bad[place] = char(random() % 256);
            else
                bad.replace(place, int(random() % 4), pieces[random() % std::size(pieces)]);
        }
        const Marks marks = marksOf(bad);
        if (!marks.error.isEmpty()) {
            QVERIFY(marks.clips.isEmpty() && marks.recordings.isEmpty());
            continue;
        }
        ++readable;
        for (const MarkedRecording& recording : marks.recordings)
            QVERIFY(!recording.video.isEmpty() && !recording.video.contains(QChar()) &&
                    recording.bytes >= 0);
        for (const MarkedClip& found : marks.clips) {
            QVERIFY(found.recording >= 0 && found.recording < marks.recordings.size());
            QVERIFY(found.number >= 0);
            QVERIFY(qAbs(found.start) <= 1e9 && qAbs(found.end) <= 1e9);
            for (const MarkedPart& part : found.parts)
                QVERIFY(part.recording >= 0 && part.recording < marks.recordings.size() &&
                        part.offset >= 0.0);
        }
    }
    QVERIFY(readable > 100);
}

QTEST_APPLESS_MAIN(TestMarks)
#include "test_marks.moc"
