// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner as a whole, as a person or a script calls it.

#include "files.h"
#include "media.h"
#include "pipewriter.h"
#include "process.h"

#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

#include <csignal>
#include <unistd.h>

namespace {

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", arguments);
}

} // namespace

class TestScan : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void textNamesEachClip();
    void jsonLinesHaveEveryField();
    void csvIsQuoted();
    void snapshotsAreWrittenAndNamed();
    void sameNamesGetSnapshotsOfTheirOwn();
    void traceHasOneLinePerFrame();
    void sideBySideEqualsOneAfterAnother_data();
    void sideBySideEqualsOneAfterAnother();
    void threadsDoNotChangeAnything();
    void quietSaysNothing();
    void summaryGoesToStandardError();
    void maskAndRectangleLimitTheRegion();
    void colonsAndSpacesInNames();
    void namesWithPlaceholders();
    void traceNeverOverwritesAVideo();
    void traceNeverOverwritesTheMask();
    void emptyRegionsAreWarnedOf();
    void namesInUtf8WithoutALocale();
    void namesThatAreNotUtf8();
    void namesCannotSteerATerminal();
    void longestNames();
    void storedSettingsAreNotRead();
    void worksWithoutADisplay();
    void helpAndVersion();
    void usageErrors_data();
    void usageErrors();
    void unreadableVideosAreNamedAndTheOthersDone();
    void onlyRecordingsAreToBlame();
    void unwritableOutputsAreUsageErrors();
    void fullDiskIsNoSuccess();
    void interruptWritesTheOpenClip_data();
    void interruptWritesTheOpenClip();
    void readsPipes();
    void interruptEndsTheWaitForAPipe_data();
    void interruptEndsTheWaitForAPipe();
    void othersGoOnBesideAStalledPipe();
    void playlistsAreNamed();
    void needsNoWidgets();

private:
    QTemporaryDir folder;
    QString video; ///< 20 s; a box crosses from second 6 to second 12
};

void TestScan::initTestCase() {
    video = folder.filePath("garden.mp4");
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", video}));
}

void TestScan::textNamesEachClip() {
    const ProcessResult result = scan({"--minimum", "2", "--postrecord", "2", video});
    QCOMPARE(result.status, 0);
    const QList<QByteArray> lines = result.output.trimmed().split('\n');
    QCOMPARE(lines.size(), 1);
    const QRegularExpression format(
        "^(.+)  #0  0:00:0(\\d\\.\\d{3}) - 0:00:1(\\d\\.\\d{3})  (\\d+\\.\\d) s$");
    const auto match = format.match(lines.first());
    QVERIFY2(match.hasMatch(), lines.first().constData());
    QCOMPARE(match.captured(1), video);
    // Motion from 6 to 12; half of 2 s is filled at about 7, so the clip starts at about 4.
    QVERIFY(qAbs(match.captured(2).toDouble() - 4.0) < 0.3);
    QVERIFY(qAbs(10.0 + match.captured(3).toDouble() - 14.0) < 0.3);
}

void TestScan::jsonLinesHaveEveryField() {
    const ProcessResult result =
        scan({"--format", "jsonl", "--minimum", "2", "--postrecord", "2", video});
    QCOMPARE(result.status, 0);
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0].keys(),
             QStringList({"end", "index", "snapshot", "snapshotTime", "start", "video"}));
    QVERIFY(lines[0]["snapshot"].isNull());
    QCOMPARE(lines[0]["video"].toString(), video);
    QCOMPARE(lines[1].keys(), QStringList({"clips", "frames", "seconds", "state", "video"}));
    QCOMPARE(lines[1]["state"].toString(), QStringLiteral("finished"));
    QCOMPARE(lines[1]["clips"].toInt(), 1);
    // 500 pictures, less the few that are still in the decoder at the end.
    QVERIFY(lines[1]["frames"].toInt() > 490 && lines[1]["frames"].toInt() <= 500);
    // The first picture is number 0, so the last one lies (frames - 1) / 25 s behind it.
    QVERIFY(qAbs(lines[1]["seconds"].toDouble() - (lines[1]["frames"].toInt() - 1) / 25.0) < 1e-9);
}

void TestScan::csvIsQuoted() {
    const QString odd = folder.filePath("a \"b\", c.mp4");
    QVERIFY(QFile::copy(video, odd));
    const ProcessResult result =
        scan({"--format", "csv", "--minimum", "2", "--postrecord", "2", odd});
    QCOMPARE(result.status, 0);
    const QList<QByteArray> lines = result.output.split('\n');
    QCOMPARE(lines.first(), QByteArray("video,index,start,end,snapshotTime,snapshot\r"));
    const QByteArray name = '"' + folder.filePath("a \"\"b\"\", c.mp4").toUtf8() + "\",0,";
    QVERIFY2(lines[1].startsWith(name), lines[1].constData());
    QVERIFY(lines[1].endsWith(",\r"));
    QCOMPARE(lines.size(), 3);
}

void TestScan::snapshotsAreWrittenAndNamed() {
    const QString pictures = folder.filePath("new/pictures");
    const ProcessResult result = scan({"--format", "jsonl", "--minimum", "2", "--postrecord", "2",
                                       "--snapshots", pictures, video});
    QCOMPARE(result.status, 0);
    const QString name = jsonLines(result.output).first()["snapshot"].toString();
    QCOMPARE(name, pictures + "/garden.mp4-0000.png");
    QCOMPARE(QImage(name).size(), QSize(320, 240));
}

void TestScan::sameNamesGetSnapshotsOfTheirOwn() {
    QDir().mkpath(folder.filePath("other"));
    const QString other = folder.filePath("other/garden.mp4");
    QVERIFY(QFile::copy(video, other));
    const ProcessResult result = scan({"--format", "jsonl", "--minimum", "2", "--postrecord", "2",
                                       "--snapshots", folder.filePath("both"), video, other});
    QCOMPARE(result.status, 0);
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines[0]["snapshot"].toString(), folder.filePath("both/garden.mp4-0000.png"));
    QCOMPARE(lines[2]["snapshot"].toString(), folder.filePath("both/garden.mp4_1-0000.png"));
    QVERIFY(QFileInfo::exists(lines[2]["snapshot"].toString()));
}

void TestScan::traceHasOneLinePerFrame() {
    const QString trace = folder.filePath("trace");
    const ProcessResult result =
        scan({"--skip", "1", "--trace", trace, "--format", "jsonl", video});
    QCOMPARE(result.status, 0);
    const QList<QByteArray> lines = readFile(trace).trimmed().split('\n');
    QCOMPARE(lines.size(), jsonLines(result.output).last()["frames"].toInt() - 1);
    QByteArray held = "0";
    for (int i = 0; i < lines.size(); ++i) {
        const QList<QByteArray> fields = lines[i].split('\t');
        QCOMPARE(fields.size(), 3);
        QCOMPARE(fields[0].toInt(), i + 1);
        QVERIFY(qAbs(fields[1].toDouble() - (i + 1) / 25.0) < 1e-9);
        if (i % 2 == 0) // with one frame skipped, the odd numbers hold the value before them
            QCOMPARE(fields[2], held);
        held = fields[2];
    }
}

void TestScan::sideBySideEqualsOneAfterAnother_data() {
    QTest::addColumn<QString>("format");
    QTest::newRow("text") << "text";
    QTest::newRow("jsonl") << "jsonl";
    QTest::newRow("csv") << "csv";
}

void TestScan::sideBySideEqualsOneAfterAnother() {
    QFETCH(QString, format);
    QStringList videos;
    for (int i = 0; i < 6; ++i) {
        // The first is the longest, so that the others have to wait for it.
        const QString name = folder.filePath(QStringLiteral("side%1.mp4").arg(i));
        if (!QFileInfo::exists(name))
            QVERIFY(media::encode(media::crossingBox(18 - 2 * i, 1, 5) +
                                  QStringList{"-c:v", "libx264", "-preset", "ultrafast", name}));
        videos.append(name);
    }
    videos.insert(3, folder.filePath("missing.mp4"));
    const auto run = [&](const char* jobs) {
        const QString trace = folder.filePath("side.trace");
        ProcessResult result =
            scan(QStringList{"--format", format, "--minimum", "2", "--postrecord", "2", "--jobs",
                             jobs, "--trace", trace} +
                 videos);
        result.errors = readFile(trace); // the errors' order is not promised
        return result;
    };
    const ProcessResult one = run("1");
    QCOMPARE(one.status, 1);
    QVERIFY(one.output.count("side") >= 6);
    for (const char* jobs : {"2", "3", "64"}) {
        const ProcessResult several = run(jobs);
        QCOMPARE(several.status, 1);
        QCOMPARE(several.output, one.output);
        QCOMPARE(several.errors, one.errors);
    }
}

void TestScan::threadsDoNotChangeAnything() {
    const auto run = [&](const char* threads) {
        return scan({"--format", "jsonl", "--minimum", "2", "--threads", threads, video}).output;
    };
    const QByteArray one = run("1");
    QVERIFY(!one.isEmpty());
    for (const char* threads : {"0", "2", "5", "256"})
        QCOMPARE(run(threads), one);
}

void TestScan::quietSaysNothing() {
    QCOMPARE(scan({"--quiet", video}).errors, QByteArray());
}

void TestScan::summaryGoesToStandardError() {
    QVERIFY(scan({"--minimum", "2", "--postrecord", "2", video}).errors.contains("clips: 1"));
}

void TestScan::maskAndRectangleLimitTheRegion() {
    const QStringList options = {"--format", "jsonl", "--minimum", "2", "--postrecord", "2"};
    const auto clips = [&](const QStringList& region) {
        return jsonLines(scan(options + region + QStringList{video}).output)
            .last()["clips"]
            .toInt();
    };
    // The box crosses the middle third of the height.
    QCOMPARE(clips({"--roi", "0,60,320,100"}), 1);
    QCOMPARE(clips({"--roi", "0,0,320,60"}), 0);
    QCOMPARE(clips({"--roi", "5000,5000,10,10"}), 0);

    QImage mask(32, 24, QImage::Format_ARGB32);
    mask.fill(Qt::red);
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 32; ++x) {
            if (y < 6)
                mask.setPixelColor(x, y, Qt::green);
        }
    }
    QVERIFY(mask.save(folder.filePath("top.png")));
    QCOMPARE(clips({"--mask", folder.filePath("top.png")}), 0);
    mask.fill(Qt::green);
    QVERIFY(mask.save(folder.filePath("all.png")));
    QCOMPARE(clips({"--mask", folder.filePath("all.png")}), 1);
}

void TestScan::emptyRegionsAreWarnedOf() {
    QImage mask(32, 24, QImage::Format_ARGB32);
    mask.fill(Qt::red);
    QVERIFY(mask.save(folder.filePath("red.png")));
    const QByteArray warning =
        "kestrova-scan: " + video.toUtf8() +
        ": warning: the region selects nothing of its pictures, so no motion "
        "is found\n";
    const auto run = [this](const QString& option, const QString& value) {
        return scan({"--quiet", option, value, video});
    };
    for (const ProcessResult& result : {run("--mask", folder.filePath("red.png")),
                                        run("--roi", "320,0,10,10"), run("--roi", "-10,0,10,10")}) {
        QCOMPARE(result.status, 0);
        QCOMPARE(result.errors, warning);
    }
    mask.setPixelColor(0, 0, Qt::green);
    QVERIFY(mask.save(folder.filePath("red.png")));
    QCOMPARE(run("--mask", folder.filePath("red.png")).errors, QByteArray());
    QCOMPARE(run("--roi", "319,239,10,10").errors, QByteArray());
}

void TestScan::colonsAndSpacesInNames() {
    QVERIFY(QFile::copy(video, folder.filePath("cam:2026-11-20T12:00 %d.mp4")));
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.start(media::programDirectory() + "/kestrova-scan",
                  {"--quiet", "cam:2026-11-20T12:00 %d.mp4"});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
}

void TestScan::namesWithPlaceholders() {
    const QString odd = folder.filePath("%1 %2 %3A05.mp4");
    QVERIFY(QFile::copy(video, odd));
    const ProcessResult result = scan(
        {"--minimum", "2", "--postrecord", "2", "--snapshots", folder.filePath("odd"), odd, odd});
    QCOMPARE(result.status, 0);
    const QList<QByteArray> lines = result.output.trimmed().split('\n');
    QVERIFY2(lines[0].startsWith(odd.toUtf8() + "  #0  "), lines[0].constData());
    QVERIFY(lines[0].endsWith("/odd/%1 %2 %3A05.mp4-0000.png"));
    QVERIFY(lines[1].endsWith("/odd/%1 %2 %3A05.mp4_1-0000.png"));
    QVERIFY(QFileInfo::exists(folder.filePath("odd/%1 %2 %3A05.mp4_1-0000.png")));
    QVERIFY(result.errors.contains(odd.toUtf8() + ": clips: 1, length: "));
}

void TestScan::traceNeverOverwritesAVideo() {
    const QString copy = folder.filePath("precious.mp4");
    QVERIFY(QFile::copy(video, copy));
    const QString symbolic = folder.filePath("symbolic.mp4");
    QVERIFY(QFile::link(copy, symbolic));
    const QString hard = folder.filePath("hard.mp4");
    QVERIFY(link(copy.toUtf8().constData(), hard.toUtf8().constData()) == 0);
    for (const QString& trace : {copy, symbolic, hard}) {
        const ProcessResult result = scan({"--trace", trace, video, copy});
        QCOMPARE(result.status, 2);
        QVERIFY2(result.errors.contains(("--trace would overwrite the video '" + copy).toUtf8()),
                 result.errors.constData());
        QCOMPARE(readFile(copy), readFile(video));
    }
}

void TestScan::traceNeverOverwritesTheMask() {
    QImage mask(8, 8, QImage::Format_ARGB32);
    mask.fill(Qt::green);
    const QString path = folder.filePath("mask.png");
    QVERIFY(mask.save(path));
    const QByteArray before = readFile(path);
    const QString hard = folder.filePath("mask-too.png");
    QVERIFY(link(path.toUtf8().constData(), hard.toUtf8().constData()) == 0);
    const ProcessResult result = scan({"--mask", path, "--trace", hard, video});
    QCOMPARE(result.status, 2);
    QVERIFY(result.errors.contains(("--trace would overwrite the mask '" + path).toUtf8()));
    QCOMPARE(readFile(path), before);
}

void TestScan::namesInUtf8WithoutALocale() {
    const QString name = folder.filePath(QStringLiteral("jardín-雪.mp4"));
    QVERIFY(QFile::copy(video, name));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C");
    process.setProcessEnvironment(environment);
    process.start(media::programDirectory() + "/kestrova-scan",
                  {"--quiet", "--format", "jsonl", name});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(jsonLines(process.readAllStandardOutput()).last()["video"].toString(), name);
}

void TestScan::namesThatAreNotUtf8() {
    const QByteArray name = "caf\xe9 \xe2\xa0,.mp4";
    const QByteArray pictures = folder.path().toUtf8() + "/pictures \xff";
    const QByteArray path = folder.path().toUtf8() + '/' + name;
    QVERIFY(link(video.toUtf8().constData(), path.constData()) == 0);
    // Through the shell, since this program itself does not know such names.
    QVERIFY(qputenv("NAME", path) && qputenv("PICTURES", pictures));
    const auto run = [](const QStringList& options) {
        return runProgram("/bin/sh", QStringList{"-c",
                                                 "exec \"$0\" --minimum 2 --postrecord 2 "
                                                 "--snapshots \"$PICTURES\" \"$@\" \"$NAME\"",
                                                 media::programDirectory() + "/kestrova-scan"} +
                                         options);
    };
    const QByteArray picture = pictures + "/" + name + "-0000.png";
    const ProcessResult text = run({});
    QCOMPARE(text.status, 0);
    QVERIFY(text.output.startsWith(path + "  #0  "));
    QVERIFY(text.output.endsWith("  " + picture + '\n'));
    QVERIFY(text.errors.startsWith(path + ": clips: 1"));
    QVERIFY(access(picture.constData(), R_OK) == 0);

    const ProcessResult csv = run({"--format", "csv"});
    QVERIFY(csv.output.contains("\r\n\"" + path + "\",0,"));
    QVERIFY(csv.output.contains(",\"" + picture + "\"\r\n"));

    const QList<QJsonObject> lines = jsonLines(run({"--format", "jsonl"}).output);
    for (const QJsonObject& line : lines) {
        QVERIFY(line["video"].toString().contains(QChar::ReplacementCharacter));
        QCOMPARE(QByteArray::fromBase64(line["videoBytes"].toString().toLatin1()), path);
    }
    QCOMPARE(lines.size(), 2);
    QCOMPARE(QByteArray::fromBase64(lines[0]["snapshotBytes"].toString().toLatin1()), picture);
    const QByteArray good = scan({"--format", "jsonl", video}).output;
    QVERIFY(!good.contains("Bytes"));
}

void TestScan::namesCannotSteerATerminal() {
    const QString odd = folder.filePath("a\n\t\x1b[2J\\.mp4");
    QVERIFY(QFile::copy(video, odd));
    const ProcessResult result = scan({"--minimum", "2", "--postrecord", "2", "--snapshots",
                                       folder.filePath("steer"), odd, odd + "missing"});
    QCOMPARE(result.status, 1);
    const QByteArray shown = "a\\n\\t\\x1b[2J\\\\.mp4";
    QVERIFY2(result.output.startsWith(folder.path().toUtf8() + '/' + shown + "  #0  "),
             result.output.constData());
    QVERIFY(result.output.endsWith("/steer/" + shown + "-0000.png\n"));
    QCOMPARE(result.output.count('\n'), 1);
    QVERIFY(result.errors.contains('/' + shown + ": clips: 1, length: "));
    QVERIFY(result.errors.contains('/' + shown + "missing: No such file"));
    QCOMPARE(result.errors.count('\n'), 2);
    QVERIFY(!(result.output + result.errors).contains('\x1b'));
    QVERIFY(QFileInfo::exists(folder.filePath("steer/a\n\t\x1b[2J\\.mp4-0000.png")));

    const ProcessResult rejected = scan({"--format", "\x1b[2J", odd});
    QVERIFY(rejected.errors.contains("'\\x1b[2J'"));
    // The formats for programs keep names as they are.
    QVERIFY(scan({"--format", "csv", "--minimum", "2", odd}).output.contains("\t\x1b[2J\\.mp4\","));
}

void TestScan::longestNames() {
    const QString longest = folder.filePath(QString(251, 'a') + ".mp4");
    QVERIFY(QFile::copy(video, longest));
    const ProcessResult result = scan({"--format", "jsonl", "--minimum", "2", "--postrecord", "2",
                                       "--snapshots", folder.filePath("long"), longest, longest});
    QVERIFY2(result.status == 0, result.errors.constData());
    const QList<QJsonObject> lines = jsonLines(result.output);
    for (const int clip : {0, 2})
        QCOMPARE(QImage(lines[clip]["snapshot"].toString()).size(), QSize(320, 240));
    QVERIFY(lines[0]["snapshot"].toString() != lines[2]["snapshot"].toString());
}

void TestScan::storedSettingsAreNotRead() {
    QTemporaryDir config;
    QDir(config.path()).mkpath("kestrova");
    QFile stored(config.filePath("kestrova/kestrova.conf"));
    QVERIFY(stored.open(QIODevice::WriteOnly));
    stored.write("[General]\nthreshold_value=255\nthreshold_motion=10\n");
    stored.close();
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", config.path());
    process.setProcessEnvironment(environment);
    process.start(media::programDirectory() + "/kestrova-scan",
                  {"--quiet", "--minimum", "2", "--postrecord", "2", video});
    QVERIFY(process.waitForFinished());
    QVERIFY(!process.readAllStandardOutput().isEmpty());
}

void TestScan::worksWithoutADisplay() {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(name);
    process.setProcessEnvironment(environment);
    process.start(media::programDirectory() + "/kestrova-scan", {"--quiet", video});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
}

void TestScan::helpAndVersion() {
    const ProcessResult help = scan({"--help"});
    QCOMPARE(help.status, 0);
    for (const char* option : {"--prerecord", "--postrecord", "--minimum", "--skip",
                               "--threshold-value", "--threshold-motion", "--roi", "--mask",
                               "--format", "--snapshots", "--trace", "--quiet", "Exit status"})
        QVERIFY2(help.output.contains(option), option);
    const ProcessResult version = scan({"--version"});
    QCOMPARE(version.status, 0);
    QVERIFY(version.output.startsWith("kestrova-scan "));
}

void TestScan::usageErrors_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const QStringList& arguments, const QByteArray& message) {
        QTest::newRow(qPrintable(arguments.join(' '))) << arguments << message;
    };
    row({}, "no video");
    row({"--bogus", "x.mp4"}, "bogus");
    row({"--prerecord", "0.5", "x.mp4"}, "--prerecord takes a number from 1 to 3600");
    row({"--postrecord", "3601", "x.mp4"}, "--postrecord");
    row({"--minimum", "nan", "x.mp4"}, "--minimum");
    row({"--minimum", "five", "x.mp4"}, "'five'");
    row({"--skip", "101", "x.mp4"}, "--skip takes a whole number from 0 to 100");
    row({"--skip", "1.5", "x.mp4"}, "--skip");
    row({"--threshold-value", "256", "x.mp4"}, "--threshold-value");
    row({"--threshold-motion", "-0.1", "x.mp4"}, "--threshold-motion");
    row({"--fps", "0.009", "x.mp4"}, "--fps takes a number from 0.01 to 1000, not '0.009'");
    row({"--fps", "1000.1", "x.mp4"}, "--fps takes");
    row({"--fps", "0", "x.mp4"}, "--fps takes");
    row({"--fps", "25/1", "x.mp4"}, "--fps takes");
    row({"--fps", "inf", "x.mp4"}, "--fps takes");
    row({"--roi", "1,2,3", "x.mp4"}, "--roi takes");
    row({"--roi", "1,2,0,4", "x.mp4"}, "--roi takes");
    row({"--roi", "1,2,3,4,5", "x.mp4"}, "--roi takes");
    row({"--roi", "2147483647,0,10,10", "x.mp4"}, "--roi takes");
    row({"--roi", "0,0,10,2147483647", "x.mp4"}, "--roi takes");
    row({"--exclude", "1,2,3", "x.mp4"}, "--exclude takes X,Y,WIDTH,HEIGHT in whole pixels");
    row({"--exclude", "1,2,3,4", "--exclude=", "x.mp4"}, "--exclude takes");
    row({"--exclude", "1,2,-3,4", "x.mp4"}, "--exclude takes");
    row({"--mask", "/nonexistent.png", "x.mp4"}, "cannot read the mask");
    row({"--roi", "1,2,3,4", "--mask", "/nonexistent.png", "x.mp4"}, "exclude each other");
    row({"--format", "xml", "x.mp4"}, "'xml'");
    row({"--snapshots", "", "x.mp4"}, "--snapshots");
    row({"--mask=", "x.mp4"}, "--mask needs a name");
    row({"--roi=", "x.mp4"}, "--roi takes");
    row({"--trace=", "x.mp4"}, "--trace needs a name");
    row({"--prerecord=", "x.mp4"}, "--prerecord takes a number");
    row({"--jobs", "0", "x.mp4"}, "--jobs takes");
    row({"--threads", "-1", "x.mp4"}, "--threads takes");
}

void TestScan::usageErrors() {
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const ProcessResult result = scan(arguments);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains(message), result.errors.constData());
    QVERIFY(result.errors.contains("--help"));
    // No library has a word of its own beside it.
    QVERIFY(result.errors.startsWith("kestrova-scan: "));
    QCOMPARE(result.errors.count('\n'), 2);
    QCOMPARE(result.output, QByteArray());
}

void TestScan::unreadableVideosAreNamedAndTheOthersDone() {
    const QString text = folder.filePath("notes.txt");
    QVERIFY(writeFile(text, "not a video\n"));
    const QString missing = folder.filePath("missing.mp4");
    const ProcessResult result = scan({"--format", "jsonl", missing, text, video});
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains(("kestrova-scan: " + missing + ": No such file").toUtf8()));
    QVERIFY(result.errors.contains(("kestrova-scan: " + text + ": ").toUtf8()));
    const QList<QJsonObject> lines = jsonLines(result.output);
    for (int i = 0; i < 2; ++i)
        QCOMPARE(lines[i]["state"].toString(), QStringLiteral("failed"));
    QCOMPARE(lines.last()["state"].toString(), QStringLiteral("finished"));
}

void TestScan::onlyRecordingsAreToBlame() {
    const QString text = folder.filePath("words.txt");
    QVERIFY(writeFile(text, "not a video\n"));
    for (const char* jobs : {"1", "2"}) {
        QCOMPARE(scan({"--jobs", jobs, text, video}).status, 3);
        // Whatever is our side's fault wins, wherever it stands.
        QCOMPARE(scan({"--jobs", jobs, text, folder.filePath("missing.mp4")}).status, 1);
        QCOMPARE(scan({"--jobs", jobs, folder.filePath("missing.mp4"), text}).status, 1);
    }
    QCOMPARE(scan({"--trace", "/dev/full", video, text}).status, 1);
    QCOMPARE(scan({"--list", folder.filePath("missing"), text}).status, 1);
    QCOMPARE(scan({"--trace", folder.path(), text}).status, 2);
}

void TestScan::unwritableOutputsAreUsageErrors() {
    QCOMPARE(scan({"--snapshots", "/proc/pictures", video}).status, 2);
    QCOMPARE(scan({"--trace", folder.path(), video}).status, 2);
}

void TestScan::fullDiskIsNoSuccess() {
    QCOMPARE(scan({"--trace", "/dev/full", video}).status, 1);
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    process.start(media::programDirectory() + "/kestrova-scan", {"--format", "jsonl", video});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
}

void TestScan::interruptWritesTheOpenClip_data() {
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void TestScan::interruptWritesTheOpenClip() {
    QFETCH(int, signal);
    // Motion all the time, so that one clip opens at the start and stays open; long enough for the
    // signal to come in its middle on any machine.
    const QString busy = folder.filePath("busy.mp4");
    if (!QFileInfo::exists(busy))
        QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=1280x720:r=25:d=60", "-c:v",
                               "libx264", "-preset", "ultrafast", busy}));
    const QString trace = folder.filePath("busy.trace");
    QFile::remove(trace);
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  {"--format", "jsonl", "--trace", trace, busy, video});
    QTRY_VERIFY(QFileInfo(trace).size() > 4096); // more than six frames are done: the clip is open
    ::kill(pid_t(process.processId()), signal);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 130);
    const QList<QJsonObject> lines = jsonLines(process.readAllStandardOutput());
    QCOMPARE(lines.size(), 2); // the second video was not begun
    QCOMPARE(lines[0]["index"].toInt(-1), 0);
    QCOMPARE(lines[1]["state"].toString(), QStringLiteral("cancelled"));
    QCOMPARE(lines[0]["end"].toDouble(), lines[1]["seconds"].toDouble());
    QVERIFY(lines[1]["frames"].toInt() < 1490);
}

void TestScan::readsPipes() {
    const QString recording = folder.filePath("garden.mkv");
    QVERIFY(media::encode({"-i", video, "-c", "copy", recording}));
    const QStringList options = {"--format", "csv", "--minimum", "2", "--postrecord", "2"};
    QByteArray expected = scan(options + QStringList{recording}).output;
    const QString pipe = folder.filePath("pipe.mkv");
    PipeWriter writer(pipe, readFile(recording));
    writer.goOn();
    const ProcessResult result = scan(options + QStringList{pipe});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, expected.replace(recording.toUtf8(), pipe.toUtf8()));
    QVERIFY(expected.count('\n') > 1);

    QProcess process;
    process.setStandardInputFile(recording);
    process.start("/bin/sh",
                  {"-c", "cat | \"$0\" \"$@\"", media::programDirectory() + "/kestrova-scan",
                   "--format", "jsonl", "--quiet", "/dev/stdin"});
    QVERIFY(process.waitForFinished());
    const QList<QJsonObject> lines = jsonLines(process.readAllStandardOutput());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(lines.last()["state"].toString(), QStringLiteral("finished"));
    QVERIFY(lines.last()["frames"].toInt() > 490);
}

void TestScan::interruptEndsTheWaitForAPipe_data() {
    QTest::addColumn<bool>("isHalfThere");
    QTest::newRow("nothing comes") << false;
    QTest::newRow("the second half does not come") << true;
}

void TestScan::interruptEndsTheWaitForAPipe() {
    QFETCH(bool, isHalfThere);
    const QString recording = folder.filePath("long.ts");
    QVERIFY(media::encode(
        {"-f", "lavfi", "-i", "testsrc2=s=64x48:r=25:d=120", "-c:v", "mpeg2video", recording}));
    const QString pipe = folder.filePath(isHalfThere ? "half.ts" : "nothing.ts");
    const PipeWriter writer(pipe, isHalfThere ? readFile(recording) : QByteArray());
    const QString trace = folder.filePath("pipe.trace");
    QFile::remove(trace);
    const QString text = folder.filePath("before.txt"); // its status does not win
    QVERIFY(writeFile(text, "not a video\n"));
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  {"--format", "jsonl", "--trace", trace, text, pipe, video});
    QTRY_VERIFY(writer.hasWrittenHalf() && (!isHalfThere || QFileInfo(trace).size() > 0));
    ::kill(pid_t(process.processId()), SIGINT);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 130);
    const QList<QJsonObject> lines = jsonLines(process.readAllStandardOutput());
    QVERIFY(!lines.isEmpty());
    QCOMPARE(lines.last()["video"].toString(), pipe);
    QCOMPARE(lines.last()["state"].toString(), QStringLiteral("cancelled"));
    QCOMPARE(lines.last()["frames"].toInt() > 0, isHalfThere);
}

void TestScan::othersGoOnBesideAStalledPipe() {
    const QString pipe = folder.filePath("nobody.mkv");
    QCOMPARE(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  {"--format", "jsonl", "--jobs", "2", video, pipe, video});
    // What the last one finds is printed behind the pipe's end, but its summary comes at once.
    QByteArray errors;
    QTRY_VERIFY((errors += process.readAllStandardError()).count(": clips: ") == 2);
    ::kill(pid_t(process.processId()), SIGTERM);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 130);
    QStringList states;
    for (const QJsonObject& line : jsonLines(process.readAllStandardOutput())) {
        if (line.contains("state"))
            states.append(line["state"].toString());
    }
    QCOMPARE(states, QStringList({"finished", "cancelled", "finished"}));
}

void TestScan::playlistsAreNamed() {
    const QString playlist = folder.filePath("live.m3u8");
    QVERIFY(writeFile(playlist, "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:20,\ngarden.mp4\n"));
    const ProcessResult result = scan({"--format", "jsonl", playlist});
    QCOMPARE(result.status, 3);
    QCOMPARE(result.errors,
             "kestrova-scan: " + playlist.toUtf8() + ": a playlist, not a recording\n");
    QCOMPARE(jsonLines(result.output).first()["state"].toString(), QStringLiteral("failed"));
}

void TestScan::needsNoWidgets() {
    QProcess process;
    process.start("ldd", {media::programDirectory() + "/kestrova-scan"});
    QVERIFY(process.waitForFinished());
    const QByteArray libraries = process.readAllStandardOutput();
    QVERIFY(libraries.contains("libQt5Core"));
    QVERIFY(!libraries.contains("libQt5Widgets"));
}

QTEST_GUILESS_MAIN(TestScan)
#include "test_scan.moc"
