// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What the scanner and its encoder can reach beyond what they were given: nothing, where the
// kernel has Landlock and seccomp.

#include "encoderstand.h"
#include "files.h"
#include "process.h"
#include "scannerstand.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <memory>

namespace {

const QStringList quietly = QStringList{"--quiet"} + oneClip;
const QByteArray refused = ": Permission denied\n";

bool isOffered(const QByteArray& protection) {
    return runProgram("kestrova-scan", {"--version"}).output.contains(protection + "): yes\n");
}

} // namespace

class TestConfinement : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void versionSaysWhatThereIs();
    void scannerOpensNothingElse();
    void forgedValuesOpenNoFolder();
    void scannerCallsNothingElse();
    void confinesItselfBeforeThreads();
    void encoderReachesNothingElse_data();
    void encoderReachesNothingElse();
    void marksOpenTheirRecordingsAlone();
    void recordingsAreReadWhereverTheyAre_data();
    void recordingsAreReadWhereverTheyAre();
    void recordingOfNamedValues();

private:
    ProcessResult trespass(const QStringList& more = {});
    QByteArray scan(const QStringList& arguments, const QByteArray& list = {});
    QString path(const QString& name) const { return results->filePath(name); }
    QString secret() const { return elsewhere->filePath("secret"); }

    ScannerStand scanner;
    QTemporaryDir recordings;
    QString recording; ///< one clip with `oneClip`
    std::unique_ptr<QTemporaryDir> results;
    std::unique_ptr<QTemporaryDir> elsewhere;
};

void TestConfinement::initTestCase() {
    recording = recordings.filePath("garden.mp4");
    QVERIFY(encodeVisit(recording));
}

void TestConfinement::init() {
    results = std::make_unique<QTemporaryDir>();
    elsewhere = std::make_unique<QTemporaryDir>();
    QVERIFY(writeFile(secret(), "do not tell\n"));
}

/// A scan that keeps values, with a trespasser in it.
ProcessResult TestConfinement::trespass(const QStringList& more) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", KESTROVA_TRESPASSER);
    environment.insert("TRESPASSED_FILE", secret());
    const QString copy = path("copy.mp4");
    QFile::copy(recording, copy);
    environment.insert("TRESPASSED_RECORDING", copy);
    environment.insert("TRESPASSED_FOLDER", elsewhere->path());
    // The sanitizer asks to be the first library.
    environment.insert("ASAN_OPTIONS",
                       environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    return runProgramIn(environment, "kestrova-scan",
                        quietly + QStringList{"--values", path("values"), copy} + more);
}

/// What it prints, from the folder of the results.
QByteArray TestConfinement::scan(const QStringList& arguments, const QByteArray& list) {
    QProcess process;
    process.setWorkingDirectory(results->path());
    process.start(ScannerStand::path(), quietly + arguments);
    process.write(list);
    process.closeWriteChannel();
    const ProcessResult result = endOf(process);
    if (result.status != 0)
        qWarning("%s", result.errors.constData());
    return result.output;
}

void TestConfinement::versionSaysWhatThereIs() {
    const QByteArray output = runProgram("kestrova-scan", {"--version"}).output;
    for (const char* protection : {"(Landlock): ", "(seccomp): "}) {
        const QByteArray state = output.mid(output.indexOf(protection) + int(strlen(protection)));
        QVERIFY2(state.startsWith("yes\n") || state.startsWith("no, "), output.constData());
    }
}

void TestConfinement::scannerOpensNothingElse() {
    if (!isOffered("Landlock"))
        QSKIP("this kernel has no Landlock");
    const ProcessResult result = trespass();
    QCOMPARE(result.status, 0);
    for (const char* deed : {"read", "overwrite", "remove", "make", "list"})
        QVERIFY2(result.errors.contains(QByteArray("trespasser: ") + deed + refused),
                 result.errors.constData());
    QCOMPARE(readFile(secret()), QByteArray("do not tell\n"));
    QCOMPARE(QDir(path("values")).entryList({"*.values"}).size(), 1);
}

void TestConfinement::forgedValuesOpenNoFolder() {
    if (!isOffered("Landlock"))
        QSKIP("this kernel has no Landlock");
    QVERIFY(!scan({"--values", "kept", recording}).isEmpty());
    QByteArray values = readFile(path("kept/" + QDir(path("kept")).entryList({"*.values"})[0]));
    values.replace("# recording: " + QFile::encodeName(recording),
                   "# recording: " + QFile::encodeName(elsewhere->path()));
    QVERIFY(writeFile(path("forged.values"), values));
    const ProcessResult result = trespass({path("forged.values")});
    QVERIFY2(result.errors.contains("forged.values: its digest is another\n"),
             result.errors.constData());
    QVERIFY2(result.errors.contains("trespasser: read" + refused), result.errors.constData());
}

void TestConfinement::scannerCallsNothingElse() {
    if (!isOffered("seccomp"))
        QSKIP("this kernel has no seccomp");
    const ProcessResult result = trespass();
    QCOMPARE(result.status, 0);
    for (const char* deed : {
             "shorten", "empty", "open up", "network", "local socket", "mount", "privileges",
#if !defined(__SANITIZE_ADDRESS__)
                 "trace",
#endif
                 "namespace"
         })
        QVERIFY2(result.errors.contains(QByteArray("trespasser: ") + deed + refused),
                 result.errors.constData());
    QVERIFY2(result.errors.contains("trespasser: core files: 0\n"), result.errors.constData());
}

void TestConfinement::confinesItselfBeforeThreads() {
    const ProcessResult result = trespass();
    QVERIFY2(result.errors.contains("trespasser: threads: 1\n"), result.errors.constData());
}

void TestConfinement::encoderReachesNothingElse_data() {
    QTest::addColumn<QByteArray>("protection");
    QTest::addColumn<QByteArray>("deed");
    QTest::newRow("reading") << QByteArray("Landlock") << QByteArray("cat secret");
    QTest::newRow("writing") << QByteArray("Landlock") << QByteArray("echo >>secret");
    QTest::newRow("making") << QByteArray("Landlock") << QByteArray("echo >new");
    QTest::newRow("removing") << QByteArray("Landlock") << QByteArray("rm secret");
    QTest::newRow("listing") << QByteArray("Landlock") << QByteArray("ls");
    QTest::newRow("connecting") << QByteArray("seccomp")
                                << QByteArray("bash -c 'echo >/dev/tcp/127.0.0.1/9'");
}

void TestConfinement::encoderReachesNothingElse() {
    QFETCH(QByteArray, protection);
    QFETCH(QByteArray, deed);
    if (!isOffered(protection))
        QSKIP(("this kernel has no " + protection).constData());
    EncoderStand stand;
    stand.useScript("for output; do :; done\ncd " + QFile::encodeName(elsewhere->path()) +
                    "\nexec >\"$output\" 2>&1\n(" + deed + ")\necho the end\n");
    QVERIFY(!scan({"--export", path("clips"), recording}).isEmpty());
    const QByteArray said = readFile(path("clips/garden_mp4_0/0000.avi"));
    QVERIFY2(said.contains("Permission denied"), said.constData());
    QVERIFY2(said.endsWith("the end\n") && !said.contains("do not tell"), said.constData());
    QCOMPARE(readFile(secret()), QByteArray("do not tell\n"));
    QCOMPARE(QDir(elsewhere->path()).entryList(QDir::Files), QStringList("secret"));
}

/// Of the recordings that a file of marks names, only those that are what they were.
void TestConfinement::marksOpenTheirRecordingsAlone() {
    if (!isOffered("Landlock"))
        QSKIP("this kernel has no Landlock");
    const QFileInfo good(recording);
    const QByteArray mark =
        R"({"recording":"%1","size":%2,"modified":%3,"number":0,"start":1,"end":4,"mark":"keep"})";
    const QString named = QString::fromLatin1(mark)
                              .arg(recording)
                              .arg(good.size())
                              .arg(good.lastModified().toMSecsSinceEpoch());
    const QString forged = QString::fromLatin1(mark).arg(secret()).arg(7).arg(7);
    const QString file =
        R"({"kestrova":"marks","version":1,"clips":[)" + named + "," + forged + "]}";
    QVERIFY(writeFile(path("marks.json"), file.toUtf8()));
    EncoderStand stand;
    stand.useScript("for output; do :; done\nexec >\"$output\" 2>&1\n(cat " +
                    QFile::encodeName(secret()) + ")\n(head -c 1 " + QFile::encodeName(recording) +
                    " >/dev/null && echo readable)\n");
    const ProcessResult result =
        runProgram(ScannerStand::path(),
                   {"--quiet", "--marked", path("marks.json"), "--export", path("clips")});
    QVERIFY2(result.errors.contains("secret: it has changed since its clips were marked\n"),
             result.errors.constData());
    const QByteArray said = readFile(path("clips/garden_mp4_0/0000.avi"));
    QVERIFY2(said.contains("Permission denied"), said.constData());
    QVERIFY2(said.endsWith("readable\n") && !said.contains("do not tell"), said.constData());
}

void TestConfinement::recordingsAreReadWhereverTheyAre_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("link") << QStringList("links/yard.mp4") << QByteArray();
    QTest::newRow("link in a folder") << QStringList("links") << QByteArray();
    QTest::newRow("link to a folder") << QStringList("folder") << QByteArray();
    QTest::newRow("listed") << QStringList{"--list", "-"} << QByteArray("links/yard.mp4\n");
    QTest::newRow("folder listed") << QStringList{"--list", "-"} << QByteArray("folder\n");
}

void TestConfinement::recordingsAreReadWhereverTheyAre() {
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, list);
    QVERIFY(QDir(results->path()).mkdir("links"));
    QVERIFY(QFile::link(recording, path("links/yard.mp4")));
    QVERIFY(QFile::link(recordings.path(), path("folder")));
    QCOMPARE(scan(arguments, list).count('\n'), 1);
}

void TestConfinement::recordingOfNamedValues() {
    QVERIFY(!scan({"--values", "kept", recording}).isEmpty());
    const QStringList kept = QDir(path("kept")).entryList({"*.values"});
    QCOMPARE(kept.size(), 1);
    const QByteArray output = scan({"--snapshots", "pictures", "kept/" + kept[0]});
    QCOMPARE(output.count('\n'), 1);
    QVERIFY(QFile::exists(path("pictures/garden.mp4-0000.png")));
}

QTEST_GUILESS_MAIN(TestConfinement)
#include "test_confinement.moc"
