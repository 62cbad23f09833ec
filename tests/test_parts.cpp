// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner with recordings that are measured in parts: joined, they are what one pass gives.

#include "faults.h"
#include "files.h"
#include "footage.h"
#include "media.h"
#include "partrecordings.h"
#include "process.h"
#include "sample.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

/// What one call leaves behind.
struct Scan : ProcessResult {
    QByteArray trace;

    bool operator==(const Scan& other) const {
        return ProcessResult::operator==(other) && trace == other.trace;
    }
};

} // namespace

class TestParts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void partsAreOnePass_data();
    void partsAreOnePass();
    void partsOfFootageAreOnePass_data();
    void partsOfFootageAreOnePass();
    void aPartIsMeasuredOnce();
    void namesWithPlaceholdersAreTold();
    void whatIsIrregularIsMeasuredAnew();
    void damageOfOneIsNotThatOfAnother();
    void interlacedFieldsAreMeasuredAnew();
    void unreadableRecordingsAreSo();
    void missingPartsAreNotJoined();
    void changedRecordingsAreNotJoined();
    void whatFailsIsNotKept();
    void partsThatCannotBeWritten();
    void othersAreRejected_data();
    void othersAreRejected();

private:
    Scan scanned(const QStringList& options, const QString& named,
                 const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
    void measureParts(const QString& video, int count, const QStringList& options);
    void compareWithOnePass(const QString& video, const QStringList& options, int count,
                            int filled);
    int filledParts() const;
    QString path(const QString& name) const { return results->filePath(name); }
    QString kept() const { return path("kept"); }

    QTemporaryDir recordings;
    QString video;
    std::unique_ptr<QTemporaryDir> results;
};

void TestParts::initTestCase() {
    const QString failed = makePartRecordings(recordings.path());
    QVERIFY2(failed.isEmpty(), qPrintable(failed));
    video = recordings.filePath("closed.mp4");
}

void TestParts::init() {
    results = std::make_unique<QTemporaryDir>();
}

Scan TestParts::scanned(const QStringList& options, const QString& named,
                        const QProcessEnvironment& environment) {
    const ProcessResult result = runProgramIn(
        environment, "kestrova-scan", options + QStringList{"--trace", path("trace"), named});
    return {result, readFile(path("trace"))};
}

void TestParts::measureParts(const QString& video, int count, const QStringList& options) {
    // Backwards: nothing may depend on the others.
    for (int i = count; i >= 1; --i) {
        const ProcessResult part = runProgram(
            "kestrova-scan", options + QStringList{"--values", kept(), "--quiet", "--part",
                                                   QString("%1/%2").arg(i).arg(count), video});
        QVERIFY2(part.status == 0, part.errors.constData());
        QCOMPARE(part.output, QByteArray());
        QCOMPARE(part.errors, QByteArray());
    }
}

/// How many of the kept parts hold pictures.
int TestParts::filledParts() const {
    int filled = 0;
    for (const QString& name : QDir(kept()).entryList({"*of*.values"}, QDir::Files)) {
        const QByteArray text = readFile(kept() + '/' + name);
        filled += text.contains("\n# end: finished 0 ") ? 0 : 1;
    }
    return filled;
}

/// Joining does not even read the recording. `filled`: into how many of three parts it can be cut.
void TestParts::compareWithOnePass(const QString& video, const QStringList& options, int count,
                                   int filled) {
    const QStringList printing = {"--minimum", "2", "--format", "jsonl"};
    const Scan fresh = scanned(options + printing, video);
    QVERIFY(fresh.status == 0);
    const QString once = path("once");
    scanned(options + QStringList{"--values", once}, video);
    const QStringList whole = QDir(once).entryList({"*.values"}, QDir::Files);
    QCOMPARE(whole.size(), 1);
    measureParts(video, count, options);
    if (count == 3)
        QCOMPARE(filledParts(), filled);
    const QStringList keeping = options + printing + QStringList{"--values", kept()};
    const Scan joined = scanned(keeping, video, faults::readError(video, 0));
    QVERIFY2(withoutAdvice(joined.errors) == withoutAdvice(fresh.errors),
             joined.errors.constData());
    QCOMPARE(joined.status, fresh.status);
    QCOMPARE(joined.output, fresh.output);
    QCOMPARE(joined.trace, fresh.trace);
    QCOMPARE(readFile(kept() + '/' + whole[0]), readFile(once + '/' + whole[0]));
    QDir(kept()).removeRecursively();
}

void TestParts::partsAreOnePass_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("filled");
    // One key frame, recovery points in place of further ones, no times, packets that nobody looks
    // into.
    const QStringList uncut = {"single.mp4", "recovery.mp4", "elementary.264", "lossless.mkv"};
    const QStringList names = QDir(recordings.path()).entryList(QDir::Files);
    for (const QString& name : names)
        QTest::newRow(qPrintable(name))
            << recordings.filePath(name) << (uncut.contains(name) ? 1 : 3);
    QTest::newRow("garden.mp4") << recordingsDirectory() + "/garden.mp4" << 3;
    QTest::newRow("gate.avi") << recordingsDirectory() + "/gate.avi" << 3;
    QTest::newRow("night.mkv") << recordingsDirectory() + "/night.mkv" << 3;
}

void TestParts::partsAreOnePass() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, name);
    QFETCH(int, filled);
    compareWithOnePass(name, {}, 3, filled);
    compareWithOnePass(name, {"--skip", "6", "--roi", "20,30,120,90"}, 2, filled);
    compareWithOnePass(name, {"--skip", "1", "--threads", "1"}, 7, filled);
}

void TestParts::partsOfFootageAreOnePass_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    for (const QFileInfo& file : footageFiles())
        QTest::newRow(qPrintable(file.fileName())) << file.absoluteFilePath();
}

/// Whether they can be joined or not.
void TestParts::partsOfFootageAreOnePass() {
    QFETCH(QString, name);
    if (name.isEmpty() && footageDirectory().isEmpty())
        QSKIP("KESTROVA_FOOTAGE names no folder with recordings");
    if (name.isEmpty())
        return;
    const QStringList printing = {"--minimum", "2", "--format", "jsonl"};
    const Scan fresh = scanned(printing, name);
    measureParts(name, 3, {});
    const Scan joined = scanned(printing + QStringList{"--values", kept()}, name);
    QCOMPARE(joined.status, fresh.status);
    QCOMPARE(joined.output, fresh.output);
    QCOMPARE(joined.trace, fresh.trace);
}

void TestParts::aPartIsMeasuredOnce() {
    measureParts(video, 2, {});
    const QStringList part = {"--values", kept(), "--part", "2/2", video};
    const ProcessResult again = runProgramIn(faults::readError(video, 0), "kestrova-scan", part);
    QVERIFY2(again.status == 0, again.errors.constData());
    QCOMPARE(QDir(kept()).entryList({"*.values"}, QDir::Files).size(), 2);
    // Where the whole is there, nothing is to be done, either.
    scanned({"--values", kept()}, video);
    const ProcessResult other = runProgramIn(faults::readError(video, 0), "kestrova-scan",
                                             {"--values", kept(), "--part", "1/5", video});
    QVERIFY2(other.status == 0, other.errors.constData());
    QCOMPARE(QDir(kept()).entryList({"*.values"}, QDir::Files).size(), 3);
}

/// Damage may reach as far as it likes.
void TestParts::namesWithPlaceholdersAreTold() {
    const QString odd = path("%1 %3.mp4");
    QVERIFY(QFile::copy(video, odd));
    const ProcessResult part =
        runProgram("kestrova-scan", {"--values", kept(), "--part", "1/1", odd});
    QVERIFY2(part.errors.contains(odd.toUtf8() + ": part 1 of 1 is measured\n"),
             part.errors.constData());
}

void TestParts::whatIsIrregularIsMeasuredAnew() {
    QByteArray bytes = readFile(recordings.filePath("transport.ts"));
    for (int i = bytes.size() / 3; i < bytes.size() / 3 + 4000; ++i)
        bytes[i] = char(bytes[i] ^ 0x5a);
    const QString damaged = path("damaged.ts");
    QVERIFY(writeFile(damaged, bytes));
    const Scan fresh = scanned({"--format", "jsonl", "--threads", "1"}, damaged);
    measureParts(damaged, 3, {"--threads", "1"});
    const Scan joined =
        scanned({"--format", "jsonl", "--threads", "1", "--values", kept()}, damaged);
    QVERIFY2(joined.errors.contains(": its 3 parts are not used, measured anew: "),
             joined.errors.constData());
    QCOMPARE(joined.output, fresh.output);
    QCOMPARE(joined.trace, fresh.trace);
}

/// The libraries tell of both side by side.
void TestParts::damageOfOneIsNotThatOfAnother() {
    const QString damaged = path("damaged.ts");
    QByteArray bytes = readFile(recordings.filePath("transport.ts"));
    for (int i = 2000; i < bytes.size(); i += 500)
        bytes[i] = char(bytes[i] ^ 0x5a);
    QVERIFY(writeFile(damaged, bytes));
    const QString copy = path("copy.ts");
    QVERIFY(writeFile(copy, readFile(recordings.filePath("transport.ts"))));
    for (const char* part : {"1/2", "2/2"}) {
        const ProcessResult result =
            runProgram("kestrova-scan", {"--values", kept(), "--quiet", "--jobs", "2", "--threads",
                                         "2", "--part", part, damaged, copy});
        QVERIFY2(result.status == 0, result.errors.constData());
    }
    const Scan joined = scanned({"--values", kept()}, copy);
    QVERIFY2(!joined.errors.contains("measured anew"), joined.errors.constData());
    const Scan fresh = scanned({"--values", kept()}, damaged);
    QVERIFY2(fresh.errors.contains("measured anew"), fresh.errors.constData());
}

/// What its fields refer to counts from the first such picture of the stream.
void TestParts::interlacedFieldsAreMeasuredAnew() {
    const QString fields = path("fields.avi");
    QVERIFY(media::encode(media::crossingBox(10, 3, 7) + QStringList{"-c:v", "mpeg4", "-bf", "2",
                                                                     "-g", "20", "-flags",
                                                                     "+ildct+ilme", fields}));
    const Scan fresh = scanned({"--format", "jsonl", "--minimum", "2"}, fields);
    measureParts(fields, 3, {});
    const Scan joined =
        scanned({"--format", "jsonl", "--minimum", "2", "--values", kept()}, fields);
    QVERIFY2(joined.errors.contains(" parts are not used, measured anew: "),
             joined.errors.constData());
    QCOMPARE(joined.output, fresh.output);
    QCOMPARE(joined.trace, fresh.trace);
}

void TestParts::unreadableRecordingsAreSo() {
    const QString noise = path("noise.mp4");
    const QString sound = path("sound.mka");
    const QString single = path("one.avi");
    QVERIFY(writeFile(noise, QByteArray(5000, 'x')));
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", sound}));
    QVERIFY(media::encodeGrey(single, {media::grey(32, 32, 9)}, 25, {"-c:v", "ffv1"}));
    for (const QString& name : {noise, sound, single}) {
        const Scan fresh = scanned({"--format", "jsonl"}, name);
        for (const char* part : {"1/2", "2/2"}) {
            const ProcessResult result =
                runProgram("kestrova-scan", {"--values", kept(), "--quiet", "--part", part, name});
            const bool isTold = result.errors.contains(name.toUtf8());
            QCOMPARE(isTold, result.status != 0);
        }
        const Scan joined = scanned({"--format", "jsonl", "--values", kept()}, name);
        QCOMPARE(joined.status, fresh.status);
        QCOMPARE(joined.output, fresh.output);
    }
}

void TestParts::missingPartsAreNotJoined() {
    measureParts(video, 3, {});
    const QStringList files = QDir(kept()).entryList({"*-2of3.values"}, QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY(QFile::remove(kept() + '/' + files[0]));
    const Scan fresh = scanned({"--format", "jsonl"}, video);
    QVERIFY(scanned({"--format", "jsonl", "--values", kept()}, video) == fresh);
}

void TestParts::changedRecordingsAreNotJoined() {
    const QString own = path("own.mp4");
    QVERIFY(QFile::copy(video, own));
    measureParts(own, 2, {});
    QVERIFY(QFile::remove(own));
    QVERIFY(QFile::copy(recordings.filePath("both.mp4"), own));
    const Scan fresh = scanned({"--format", "jsonl"}, own);
    QVERIFY(scanned({"--format", "jsonl", "--values", kept()}, own) == fresh);
}

void TestParts::whatFailsIsNotKept() {
    const qint64 size = QFileInfo(video).size();
    for (const qint64 offset : {qint64(0), size / 10, size / 2}) {
        const ProcessResult part =
            runProgramIn(faults::readError(video, offset), "kestrova-scan",
                         {"--values", kept(), "--quiet", "--part", "2/2", video});
        QCOMPARE(part.status, 1);
        QVERIFY2(part.errors.contains(video.toUtf8()), part.errors.constData());
        QCOMPARE(QDir(kept()).entryList(QDir::Files), QStringList());
    }
}

void TestParts::partsThatCannotBeWritten() {
    const auto environment = faults::callError("write", ENOSPC, ".values", 0);
    const ProcessResult part =
        runProgramIn(environment, "kestrova-scan", {"--values", kept(), "--part", "1/2", video});
    QCOMPARE(part.status, 1);
    QVERIFY2(part.errors.contains(": cannot keep the values: "), part.errors.constData());
    QCOMPARE(QDir(kept()).entryList(QDir::Files), QStringList());
}

void TestParts::othersAreRejected_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray number = "--part takes one of up to 9999 parts, as in 2/3, not '";
    for (const char* part : {"0/3", "4/3", "2", "2/3/4", "x/3", "1/10000", "-1/3", ""})
        QTest::newRow(part) << QStringList{"--values", "v", "--part", part} << number + part + '\'';
    QTest::newRow("values") << QStringList{"--part", "1/2"} << QByteArray("--part needs --values");
    const QList<QStringList> others = {{"--quick"},       {"--from", "1"},     {"--to", "1"},
                                       {"--merge", "1"},  {"--format", "csv"}, {"--snapshots", "s"},
                                       {"--report", "r"}, {"--trace", "t"},    {"--export", "e"}};
    for (const QStringList& other : others)
        QTest::newRow(qPrintable(other[0]))
            << QStringList{"--values", "v", "--part", "1/2"} + other
            << "--part and " + other[0].toUtf8() + " exclude each other";
}

void TestParts::othersAreRejected() {
    QFETCH(QStringList, options);
    QFETCH(QByteArray, reason);
    const ProcessResult result = runProgram("kestrova-scan", options + QStringList{video});
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains(reason), result.errors.constData());
}

QTEST_GUILESS_MAIN(TestParts)
#include "test_parts.moc"
