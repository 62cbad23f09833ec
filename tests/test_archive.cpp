// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// kestrova-archive on this machine; scripts/test-archive has the others.

#include "files.h"
#include "media.h"
#include "process.h"

#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char noEngine[] = "GNU parallel is not installed";

bool hasEngine() {
    return !QStandardPaths::findExecutable("parallel").isEmpty();
}

} // namespace

class TestArchive : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void printsWhatTheScannerPrints();
    void measuresWithWhatValuesDependOn();
    void likeliestPartsAreTheFirstJobs();
    void whatCannotBeToldIsMeasuredInOrder();
    void goesOnWhereItEnded();
    void listsAnew();
    void aListThatCannotBeReadFailsAgain();
    void aChangedMaskIsAnotherOne();
    void namesAreNoPrograms();
    void foldersOfOthersAreRefused_data();
    void foldersOfOthersAreRefused();
    void uselessHostsEndIt_data();
    void uselessHostsEndIt();
    void hostsMayHaveOtherKernels();
    void hostsAreOfUseWithoutTheSample();
    void aSignalEndsAll_data();
    void aSignalEndsAll();
    void saysHowFarItIs();
    void foldersOfAnyNameAreTold();
    void askingHowFarItIsChangesNothing();
    void bashCompletesItsOptions();
    void namesWhatIsMissing();
    void usageErrors_data();
    void usageErrors();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList archivesIn(const QString& name) const {
        return QDir(path(name)).entryList({"archive-*"}, QDir::Dirs);
    }
    /// Puts a script into a folder that is called where the archive calls the scanner.
    static void useInScannersPlace(const QString& place, const QString& script) {
        const QString scanner = place + "/kestrova-scan";
        QVERIFY(writeFile(scanner, ("#!/bin/sh\n" + script).toUtf8()));
        QVERIFY(QFile::setPermissions(scanner, QFile::ReadOwner | QFile::ExeOwner));
        QVERIFY(QFile::link(KESTROVA_SOURCE "/src/archive/kestrova-archive",
                            place + "/kestrova-archive"));
    }
    /// How many jobs of the last call have ended.
    int endsIn(const QString& name) const {
        const QDir ends(path(name + '/' + archivesIn(name).value(0) + "/ends"), {}, QDir::Name,
                        QDir::Files);
        int count = 0;
        for (const QString& host : ends.entryList())
            count += readFile(ends.filePath(host)).simplified().split(' ').size() / 2;
        return count;
    }

    QTemporaryDir folder; ///< recordings/: two recordings, and one that is none
    QStringList options;
};

void TestArchive::initTestCase() {
    QVERIFY(QDir(folder.path()).mkpath("recordings"));
    for (const char* name : {"recordings/it's \"one\".mkv", "recordings/line\nbreak.mkv"})
        QVERIFY(
            media::encode(media::crossingBox(8, 2, 6) + QStringList{"-c:v", "mpeg4", path(name)}));
    QVERIFY(writeFile(path("recordings/noise.mp4"), QByteArray(5000, 'x')));
    options = QStringList{"--quiet", "--format", "jsonl", "--minimum", "2"};
}

void TestArchive::printsWhatTheScannerPrints() {
    if (!hasEngine())
        QSKIP(noEngine);
    const ProcessResult scan =
        runProgram("kestrova-scan", options + QStringList{path("recordings")});
    QCOMPARE(scan.status, 3);
    QVERIFY(scan.output.contains("\"clips\":1"));
    const ProcessResult archive = runProgram(
        "kestrova-archive", options + QStringList{"--values", path("kept"), path("recordings")});
    QCOMPARE(archive.status, 3);
    QCOMPARE(archive.output, scan.output);
    QCOMPARE(archive.errors, scan.errors);
}

void TestArchive::measuresWithWhatValuesDependOn() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QStringList arguments = {"--values",  path("half"), "--skip=1",
                                   "--exclude", "0,0,8,8",    "--exclude",
                                   "8,8,8,8",   "--merge=10", path("recordings")};
    QCOMPARE(runProgram("kestrova-archive", options + arguments).status, 3);
    QCOMPARE(archivesIn("half").size(), 1);
    const QByteArray measure = readFile(path("half/" + archivesIn("half").first() + "/measure"));
    QVERIFY2(measure.contains(" --skip=1 --exclude=0,0,8,8 --exclude=8,8,8,8\n"),
             measure.constData());
    for (const QString& file : QDir(path("half")).entryList({"*.values"}))
        QVERIFY(readFile(path("half/" + file)).contains("# skip: 1\n"));
}

/// The visit lies in the second of two minutes of the second recording.
void TestArchive::likeliestPartsAreTheFirstJobs() {
    if (!hasEngine())
        QSKIP(noEngine);
    QVERIFY(QDir(folder.path()).mkpath("promising"));
    const auto make = [this](const char* name, int from) {
        return media::encode(media::crossingBox(100, from, from + 2, "160x120") +
                             QStringList{"-c:v", "mpeg4", "-q:v", "5", path(name)});
    };
    QVERIFY(make("promising/a quiet.avi", 200) && make("promising/b visit.avi", 96));
    const QStringList ask = {"--unmeasured", "--promising-first", "--values", path("first")};
    const QByteArray quiet = path("promising/a quiet.avi").toUtf8();
    const QByteArray visit = path("promising/b visit.avi").toUtf8();
    QCOMPARE(runProgram("kestrova-scan", ask + QStringList{path("promising")}).output,
             visit + '\0' + quiet + '\0');
    const ProcessResult inParts =
        runProgram("kestrova-scan", ask + QStringList{"--split", "1", path("promising")});
    const QList<QByteArray> parts = inParts.output.split('\0');
    QCOMPARE(parts.size(), 5); // the last is empty
    QCOMPARE(parts[0], "2/2 " + visit);
    for (const QByteArray& part : {"1/2 " + visit, "1/2 " + quiet, "2/2 " + quiet})
        QVERIFY(parts.contains(part));

    const QStringList search = options + QStringList{path("promising")};
    const ProcessResult scan = runProgram("kestrova-scan", search);
    QCOMPARE(scan.status, 0);
    const ProcessResult archive =
        runProgram("kestrova-archive", QStringList{"--promising-first", "--split", "1", "--jobs",
                                                   "1", "--values", path("first")} +
                                           search);
    QCOMPARE(archive.status, 0);
    QCOMPARE(archive.output, scan.output);
    const QByteArray jobs = readFile(path("first/" + archivesIn("first").value(0) + "/left"));
    QCOMPARE(jobs.count('\0'), 4);
    QVERIFY2(jobs.startsWith(jobs.left(jobs.indexOf(' ')) + " 2/2 " + visit + '\0'),
             jobs.constData());
}

/// Here since the scanner crashes when it looks.
void TestArchive::whatCannotBeToldIsMeasuredInOrder() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QString place = path("untold");
    QVERIFY(QDir(folder.path()).mkpath("untold/kept"));
    const QString scanner = media::programDirectory() + "/kestrova-scan";
    useInScannersPlace(place, "case $* in *--unmeasured*--promising-first*) kill -SEGV $$;; esac\n"
                              "exec '" +
                                  scanner + "' \"$@\"\n");
    const QStringList search = options + QStringList{path("recordings")};
    const ProcessResult archive =
        runProgram(place + "/kestrova-archive",
                   QStringList{"--promising-first", "--values", place + "/kept"} + search);
    QVERIFY2(archive.errors.contains("which are likeliest cannot be told"),
             archive.errors.constData());
    QCOMPARE(archive.output, runProgram("kestrova-scan", search).output);
}

void TestArchive::goesOnWhereItEnded() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QStringList arguments = options + QStringList{"--values", path("on"), path("recordings")};
    const ProcessResult first = runProgram("kestrova-archive", arguments);
    QCOMPARE(endsIn("on"), 3);
    const ProcessResult second = runProgram("kestrova-archive", arguments);
    QCOMPARE(second.status, 3);
    QCOMPARE(second.output, first.output);
    QCOMPARE(endsIn("on"), 0);
    // What has no values is measured again, and so is what has damaged ones.
    const QDir kept(path("on"), "*.values", QDir::Name, QDir::Files);
    QVERIFY(QFile::remove(kept.filePath(kept.entryList().value(0))));
    QVERIFY(writeFile(kept.filePath(kept.entryList().value(1)), "# kestrova values 1\n"));
    QCOMPARE(runProgram("kestrova-archive", arguments).output, first.output);
    QCOMPARE(endsIn("on"), 2);
}

void TestArchive::listsAnew() {
    if (!hasEngine())
        QSKIP(noEngine);
    QVERIFY(QDir(folder.path()).mkpath("growing"));
    const QString source = path("recordings/line\nbreak.mkv");
    QVERIFY(QFile::copy(source, path("growing/1.mkv")));
    QVERIFY(writeFile(path("list"), (path("growing/1.mkv") + '\n').toUtf8()));
    const QStringList named = {path("growing")};
    const QStringList listed = {"--list", path("list")};
    const QStringList kept = {"--values", path("grown")};
    for (const QStringList& inputs : {named, listed})
        QCOMPARE(runProgram("kestrova-archive", options + kept + inputs).status, 0);
    QVERIFY(QFile::copy(source, path("growing/2.mkv")));
    QVERIFY(writeFile(path("list"), (path("growing/2.mkv") + '\n').toUtf8()));
    for (const QStringList& inputs : {named, listed}) {
        const ProcessResult archive = runProgram("kestrova-archive", options + kept + inputs);
        QCOMPARE(archive.status, 0);
        QVERIFY(archive.output.contains("growing/2.mkv"));
        QCOMPARE(archive.output, runProgram("kestrova-scan", options + inputs).output);
    }
}

void TestArchive::aListThatCannotBeReadFailsAgain() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QStringList arguments = {"--values", path("unlisted"), "--list", path("no list"),
                                   path("recordings")};
    for (int i = 0; i < 2; ++i) {
        const ProcessResult archive = runProgram("kestrova-archive", options + arguments);
        QCOMPARE(archive.status, 1);
        QVERIFY2(archive.errors.contains("no list"), archive.errors.constData());
        QVERIFY(archive.output.contains("\"clips\":1"));
    }
}

void TestArchive::aChangedMaskIsAnotherOne() {
    if (!hasEngine())
        QSKIP(noEngine);
    QImage mask(64, 48, QImage::Format_ARGB32);
    for (const int rows : {48, 20}) {
        mask.fill(0U);
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < 64; ++x)
                mask.setPixel(x, y, 0xFF00FF00U);
        }
        QVERIFY(mask.save(path("mask.png")));
        const QStringList arguments = {"--mask", path("mask.png"), path("recordings")};
        const ProcessResult archive = runProgram(
            "kestrova-archive", options + QStringList{"--values", path("masked")} + arguments);
        QCOMPARE(archive.output, runProgram("kestrova-scan", options + arguments).output);
        QCOMPARE(archivesIn("masked").size(), rows == 48 ? 1 : 2);
    }
    QCOMPARE(runProgram("kestrova-archive",
                        {"--values", path("masked"), "--mask", path("no.png"), path("recordings")})
                 .status,
             2);
}

/// Everything that a person names, named like what GNU parallel, shells and Slurm take for a
/// program.
void TestArchive::namesAreNoPrograms() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QString odd = "{=system(\"touch HIT\")=}{} {.} {1} %j $(touch HIT)`touch HIT`\\";
    const QByteArray marks = "\257<system(\"touch HIT\")\257>";
    QVERIFY(QDir(folder.path()).mkpath(odd + "/in"));
    for (const QByteArray& name : {QFile::encodeName(odd), marks})
        QVERIFY(QFile::copy(path("recordings/line\nbreak.mkv"),
                            path(odd + "/in/" + QFile::decodeName(name) + ".mkv")));
    const QString call = "cd \"$1\" && shift && exec \"$@\"";
    const QStringList arguments = options + QStringList{"--report", "report" + odd, "in"};
    const auto run = [&](const QString& program, const QStringList& more) {
        return runProgram("/bin/sh", QStringList{"-c", call, "sh", path(odd),
                                                 media::programDirectory() + '/' + program} +
                                         more + arguments);
    };
    const ProcessResult scan = run("kestrova-scan", {});
    const ProcessResult archive = run("kestrova-archive", {"--values", "kept" + odd});
    QCOMPARE(archive.status, 0);
    QCOMPARE(archive.output, scan.output);
    QVERIFY(scan.output.count("\"clips\":1") == 2);
    QDirIterator entries(folder.path(), {"HIT*"}, QDir::AllEntries, QDirIterator::Subdirectories);
    QVERIFY2(!entries.hasNext(), qPrintable(entries.next()));
}

void TestArchive::foldersOfOthersAreRefused_data() {
    QTest::addColumn<bool>("isLink");
    QTest::newRow("folder") << false;
    QTest::newRow("link") << true;
}

/// In a folder where anybody may put something, the name of the next call's folder can be guessed.
void TestArchive::foldersOfOthersAreRefused() {
    if (!hasEngine())
        QSKIP(noEngine);
    if (geteuid() != 0)
        QSKIP("only root can make folders of other users");
    QFETCH(bool, isLink);
    const QString shared = isLink ? "sharedlink" : "shared";
    const QStringList arguments = {"--values", path(shared), path("recordings")};
    QCOMPARE(runProgram("kestrova-archive", QStringList{"--status"} + arguments).status, 0);
    const QString work = path(shared + '/' + archivesIn(shared).value(0));
    QCOMPARE(chmod(path(shared).toUtf8().constData(), 01777), 0);
    QCOMPARE(runProgram("kestrova-archive", QStringList{"--status"} + arguments).status, 0);
    if (isLink) {
        QVERIFY(QDir().rename(work, path("theirs")));
        QVERIFY(QFile::link(path("theirs"), work));
    }
    constexpr uid_t nobody = 65534;
    QCOMPARE(lchown(work.toUtf8().constData(), nobody, nobody), 0);
    const ProcessResult refused = runProgram("kestrova-archive", arguments);
    QCOMPARE(refused.status, 1);
    QCOMPARE(refused.errors, "kestrova-archive: " + work.toUtf8() +
                                 " is another user's, who may have put anything there\n");
    QVERIFY(!QFileInfo::exists(work + "/measure"));
}

void TestArchive::uselessHostsEndIt_data() {
    QTest::addColumn<QByteArray>("hosts");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("none") << QByteArray("# later\n\n") << QByteArray("names no host");
    QTest::newRow("a program") << QByteArray("1/{=system(\"touch HIT\")=}\n")
                               << QByteArray("is no host");
    QTest::newRow("an option") << QByteArray("1/-oProxyCommand=touch HIT\n")
                               << QByteArray("is no host");
    QTest::newRow("one that is not there")
        << QByteArray("1/kestrova.invalid\n") << QByteArray("host kestrova.invalid is not used: ");
}

void TestArchive::uselessHostsEndIt() {
    if (!hasEngine() || QStandardPaths::findExecutable("ssh").isEmpty())
        QSKIP("GNU parallel or ssh is not installed");
    QFETCH(QByteArray, hosts);
    QFETCH(QByteArray, reason);
    QVERIFY(writeFile(path("hosts"), hosts));
    QVERIFY(QDir(path("nowhere")).removeRecursively());
    const QStringList arguments = options + QStringList{"--values", path("nowhere"), "--hosts",
                                                        path("hosts"), path("recordings")};
    const ProcessResult failed = runProgram("kestrova-archive", arguments);
    QCOMPARE(failed.status, 1);
    QCOMPARE(failed.output, QByteArray());
    QVERIFY2(failed.errors.contains(reason), failed.errors.constData());
    QVERIFY2(failed.errors.contains("3 of 3 recordings are not measured"),
             failed.errors.constData());
    QCOMPARE(QDir(path("nowhere")).entryList({"*.values"}), QStringList());
    const ProcessResult finished =
        runProgram("kestrova-archive", arguments + QStringList{"--finish-here"});
    QCOMPARE(finished.status, 3);
    QCOMPARE(finished.output,
             runProgram("kestrova-scan", options + QStringList{path("recordings")}).output);
    QVERIFY(!QFileInfo::exists(path("HIT")) && !QFileInfo::exists("HIT"));
}

/// Each time it is asked, the scanner tells of other protections than before.
void TestArchive::hostsMayHaveOtherKernels() {
    if (!hasEngine() || QStandardPaths::findExecutable("ssh").isEmpty())
        QSKIP("GNU parallel or ssh is not installed");
    const QString place = path("kernels");
    QVERIFY(QDir(folder.path()).mkpath("kernels"));
    const QString scanner = media::programDirectory() + "/kestrova-scan";
    useInScannersPlace(place, "case $* in --version) echo kestrova-scan 1; echo confined: $$;;\n"
                              "*) exec '" +
                                  scanner + "' \"$@\";; esac\n");
    QVERIFY(writeFile(path("hosts"), ":\n"));
    const ProcessResult planned =
        runProgram(place + "/kestrova-archive", {"--dry-run", "--values", place + "/kept",
                                                 "--hosts", path("hosts"), path("recordings")});
    QVERIFY2(planned.output.contains("host :: good\n"), planned.output.constData());
}

/// The recording by which machines are compared is the oldest one, and the first to be removed:
/// here when the scanner is asked for its version a second time.
void TestArchive::hostsAreOfUseWithoutTheSample() {
    if (!hasEngine() || QStandardPaths::findExecutable("ssh").isEmpty())
        QSKIP("GNU parallel or ssh is not installed");
    const QString place = path("removed");
    QVERIFY(QDir(folder.path()).mkpath("removed"));
    QVERIFY(writeFile(place + "/only.mp4", "no recording"));
    useInScannersPlace(place, "cd '" + place +
                                  "'\ncase $* in --version) [ ! -e asked ] || rm -f only.mp4; "
                                  ">asked;; esac\nexec '" +
                                  media::programDirectory() + "/kestrova-scan' \"$@\"\n");
    QVERIFY(writeFile(path("hosts"), ":\n"));
    const ProcessResult planned =
        runProgram(place + "/kestrova-archive", {"--dry-run", "--values", place + "/kept",
                                                 "--hosts", path("hosts"), place + "/only.mp4"});
    QVERIFY(!QFile::exists(place + "/only.mp4"));
    QVERIFY2(planned.output.contains("host :: good\n"),
             (planned.output + planned.errors).constData());
}

void TestArchive::aSignalEndsAll_data() {
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void TestArchive::aSignalEndsAll() {
    if (!hasEngine())
        QSKIP(noEngine);
    QFETCH(int, number);
    // In the scanner's place: it measures for ever, and says so.
    const QString place = path(QString("signal%1").arg(number));
    QVERIFY(QDir(place).mkpath("kept"));
    const QString scanner = media::programDirectory() + "/kestrova-scan";
    useInScannersPlace(place, "case $* in *--threads=1*) echo $$ >>'" + place +
                                  "/begun'; exec sleep 3600;; esac\nexec '" + scanner +
                                  "' \"$@\"\n");
    QProcess process;
    process.start(place + "/kestrova-archive",
                  {"--jobs=2", "--values", place + "/kept", path("recordings")});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(place + "/begun").size() > 0, 30000);
    QCOMPARE(kill(pid_t(process.processId()), number), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 130);
    QVERIFY(process.readAllStandardError().contains("interrupted; the same call goes on"));
    for (const QByteArray& begun : readFile(place + "/begun").simplified().split(' '))
        QTRY_COMPARE(kill(begun.toInt(), 0), -1);
}

void TestArchive::saysHowFarItIs() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QStringList arguments = {"--values", path("far"), path("recordings")};
    const auto told = [&](const char* option) {
        return runProgram("kestrova-archive", QStringList{option} + arguments).output;
    };
    QVERIFY(told("--status").startsWith("0 of 3 recordings are measured, 3 are left.\nNo call"));
    QVERIFY(told("--dry-run").contains("GNU parallel would measure them on this machine.\nLog: "));
    QCOMPARE(QDir(path("far")).entryList({"*.values"}), QStringList());
    QVERIFY(runProgram("kestrova-archive", arguments)
                .errors.contains("3 of 3 recordings are to be "
                                 "measured; log: "));
    QVERIFY(told("--status").startsWith("3 of 3 recordings are measured, 0 are left.\n"));
    QCOMPARE(runProgram("kestrova-archive", {"--version"}).output.replace("archive", "scan"),
             runProgram("kestrova-scan", {"--version"}).output);
}

/// Also where the language lets nothing but UTF-8 out.
void TestArchive::foldersOfAnyNameAreTold() {
    if (!hasEngine())
        QSKIP(noEngine);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PYTHONIOENCODING", "utf-8:strict");
    const QString archive = media::programDirectory() + "/kestrova-archive";
    // Qt could not remove what has such a name.
    const QString call = "odd=$2/$(printf 'odd\\377\\033[31m')\n"
                         "\"$1\" --dry-run --values \"$odd\" \"$3\"; status=$?\n"
                         "rm -r \"$odd\"; exit $status";
    const ProcessResult planned = runProgramIn(
        environment, "/bin/sh", {"-c", call, "sh", archive, folder.path(), path("recordings")});
    QVERIFY2(planned.status == 0, planned.errors.constData());
    QVERIFY2(planned.output.contains("Log: " + folder.path().toUtf8() + "/odd\\udcff\\x1b[31m/"),
             planned.output.constData());
}

/// Here just when a call is about to decide, and a recording has been added since it began.
void TestArchive::askingHowFarItIsChangesNothing() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QString place = path("asked");
    QVERIFY(QDir(folder.path()).mkpath("asked/in"));
    QVERIFY(QFile::copy(path("recordings/line\nbreak.mkv"), place + "/in/1.mkv"));
    useInScannersPlace(place, "cd '" + place +
                                  "'\ncase $* in *--names* | *--unmeasured* | *--threads=1* | "
                                  "--list-options | --version) ;;\n*) cp in/1.mkv in/2.mkv; "
                                  "./kestrova-archive --status --values kept in >asked;; esac\n"
                                  "exec '" +
                                  media::programDirectory() + "/kestrova-scan' \"$@\"\n");
    const ProcessResult decided = runProgram(
        "/bin/sh", {"-c", "cd \"$1\" && ./kestrova-archive --values kept in", "sh", place});
    QVERIFY2(decided.status == 0, decided.errors.constData());
    QVERIFY(readFile(place + "/asked").startsWith("1 of 2 recordings are measured"));
    QVERIFY2(!decided.errors.contains("2.mkv"), decided.errors.constData());
}

void TestArchive::bashCompletesItsOptions() {
    if (QStandardPaths::findExecutable("bash").isEmpty())
        QSKIP("bash is not installed");
    const QString ask =
        "_kestrova_scan() { COMPREPLY=(--names --merge --unmeasured --part --list-options); }\n"
        ". " KESTROVA_SOURCE "/src/archive/kestrova-archive.bash\n"
        "ask() { COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); COMPREPLY=()\n"
        "  _kestrova_archive 2>/dev/null; echo \"${COMPREPLY[*]}\"; }\n"
        "ask kestrova-archive --s\n"
        "ask kestrova-archive --split ''\n"
        "ask kestrova-archive --m\n";
    QCOMPARE(runProgram("/bin/bash", {"-c", ask}).output,
             QByteArray("--merge --slurm --slurm-args --split --status\n\n--merge\n"));
    const QByteArray completion = readFile(KESTROVA_SOURCE "/src/archive/kestrova-archive.bash");
    const QString help = QString::fromUtf8(runProgram("kestrova-archive", {"--help"}).output);
    auto names =
        QRegularExpression("^  (--[a-z-]+)", QRegularExpression::MultilineOption).globalMatch(help);
    QVERIFY(names.hasNext());
    while (names.hasNext())
        QVERIFY(completion.contains(names.next().captured(1).toUtf8()));
}

void TestArchive::namesWhatIsMissing() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", folder.path());
    const ProcessResult result = runProgramIn(environment, "kestrova-archive",
                                              {"--values", path("none"), path("recordings")});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("parallel is missing"), result.errors.constData());
    QVERIFY(!QFileInfo::exists(path("none")));
}

void TestArchive::usageErrors_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("reason");
    const QString values = "--values=" + path("usage");
    QTest::newRow("no folder") << QStringList{"a.mp4"} << QByteArray("--values");
    QTest::newRow("no recording") << QStringList{values} << QByteArray("no video named");
    QTest::newRow("two engines") << QStringList{values, "--slurm", "--hosts", "x", "a.mp4"}
                                 << QByteArray("not allowed with");
    QTest::newRow("parts of nothing")
        << QStringList{values, "--split", "0", "a.mp4"} << QByteArray("--split");
    QTest::newRow("parts of key frames")
        << QStringList{values, "--split", "5", "--quick", "a.mp4"} << QByteArray("--split");
    QTest::newRow("the scanner's options")
        << QStringList{values, "--skip", "x", "a.mp4"} << QByteArray("--skip");
    QTest::newRow("jobs that are no number")
        << QStringList{values, "--jobs", "many", "a.mp4"} << QByteArray("--jobs takes");
    QTest::newRow("no budget") << QStringList{values, "--promising-first", "--budget", "5%",
                                              "a.mp4"}
                               << QByteArray("--budget");
    QTest::newRow("no option") << QStringList{values, "--part", "1/2", "a.mp4"}
                               << QByteArray("--part");
}

void TestArchive::usageErrors() {
    if (!hasEngine())
        QSKIP(noEngine);
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, reason);
    const ProcessResult result = runProgram("kestrova-archive", arguments);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains(reason), result.errors.constData());
    QCOMPARE(result.output, QByteArray());
}

QTEST_GUILESS_MAIN(TestArchive)
#include "test_archive.moc"
