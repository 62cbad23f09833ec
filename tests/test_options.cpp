// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commandline.h"
#include "files.h"
#include "measuresettings.h"
#include "optiontable.h"
#include "optiontext.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

CommandLine parse(const QStringList& options) {
    return parseCommandLine(QStringList{"kestrova-scan", "garden.mp4"} + options);
}

/// All that a package needs.
const QStringList package = {"--format",     "camtrap-dp", "--output",      "pkg",
                             "--start-time", "2026-11-16", "--location",    "52.5,13.25",
                             "--project",    "Otters",     "--contributor", "Anna"};

QString source(const char* name) {
    return QString::fromUtf8(readFile(QStringLiteral(KESTROVA_SOURCES "/") + name));
}

/// What stands between the marks that scripts/options knows.
QString between(const QString& text) {
    const QString begin = "<!-- options: begin -->\n";
    const int start = text.indexOf(begin);
    return start < 0 ? QString()
                     : text.mid(start + begin.size(),
                                text.indexOf("<!-- options: end -->") - start - begin.size());
}

/// Runs `program` with `text` in a file as its last argument; its output, or null if it failed.
QByteArray run(const QString& program, const QStringList& arguments, const QString& text) {
    QTemporaryDir folder;
    QFile file(folder.filePath("text"));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        return {};
    file.close();
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments + QStringList{file.fileName()});
    const bool isGood = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
                        process.exitCode() == 0;
    const QByteArray output = process.readAll();
    return isGood ? "ok" + output : QByteArray();
}

/// The options that a text names, as in --skip.
QStringList namedIn(const QString& text) {
    QStringList names;
    for (const ScanOption& option : scanOptions()) {
        if (text.contains(QRegularExpression("(--|-l )" + option.name + "\\b")))
            names += option.name;
    }
    return names;
}

QStringList allNames() {
    QStringList names;
    for (const ScanOption& option : scanOptions())
        names += option.name;
    return names;
}

} // namespace

Q_DECLARE_METATYPE(ScanOption)

class TestOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void defaultsAreTaken_data();
    void defaultsAreTaken();
    void rangesEndWhereTheySay_data();
    void rangesEndWhereTheySay();
    void wordsAreTakenAsTheyAre_data();
    void wordsAreTakenAsTheyAre();
    void defaultsDependOnTheDetector();

    void optionsKeepCompany_data();
    void optionsKeepCompany();
    void packagesNeedWhatNobodyKnows_data();
    void packagesNeedWhatNobodyKnows();
    void locationsAreDegrees_data();
    void locationsAreDegrees();
    void valuesCanBeLeftOut();
    void theTableNamesItsOwn();
    void listIsForPrograms();
    void valuesDependOnTheirOptions();
    void keptSettingsTellTheirOptions_data();
    void keptSettingsTellTheirOptions();

    void helpNamesEverything();
    void helpFitsATerminal();
    void manPageNamesEverything();
    void completionsNameEverything();
    void bashCompletesWordsAndNames();
    void zshRepeatsOptions();
    void pagesAreUpToDate();
    void manualIsUpToDate();

private:
    QTemporaryDir folder;
    QString mask; ///< a picture
};

void TestOptions::initTestCase() {
    QImage green(4, 4, QImage::Format_RGB32);
    green.fill(Qt::green);
    mask = folder.filePath("mask.png");
    QVERIFY(green.save(mask));
}

void TestOptions::defaultsAreTaken_data() {
    QTest::addColumn<ScanOption>("option");
    for (const ScanOption& option : scanOptions()) {
        if (!option.fallback.isEmpty())
            QTest::addRow("%s", qPrintable(option.name)) << option;
    }
}

void TestOptions::defaultsAreTaken() {
    QFETCH(ScanOption, option);
    const bool isOfPackage = option.needs == QStringList{"format camtrap-dp"};
    const CommandLine commandLine = parse(
        (isOfPackage ? package : QStringList()) +
        QStringList{"--export", "out", "--recap", "f.mp4", "--" + option.name, option.fallback,
                    "--detector", option.name == "detector" ? option.fallback : "cells"});
    QCOMPARE(commandLine.text, QString());
    QCOMPARE(commandLine.action, CommandLine::Action::Scan);
}

void TestOptions::rangesEndWhereTheySay_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("detector");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isTaken");
    // Said once more here: a bound that slips in the table shows.
    struct Bounds {
        const char* name;
        const char* below;
        const char* lowest;
        const char* highest;
        const char* above;
        const char* detector = "mean";
    };
    const Bounds all[] = {
        {"prerecord", "0.99", "1", "3600", "3600.01"},
        {"postrecord", "0.99", "1", "3600", "3600.01"},
        {"minimum", "0.99", "1", "3600", "3600.01"},
        {"skip", "-1", "0", "100", "101"},
        {"threshold-value", "-1", "0", "255", "256"},
        {"threshold-motion", "-0.01", "0", "10", "10.01"},
        {"threshold-motion", "-0.01", "0", "100", "100.01", "cells"},
        {"minimum", "0.99", "1", "3600", "3600.01", "cells"},
        {"sensitivity", "0", "1", "4", "5", "cells"},
        {"merge", "-0.01", "0", "86400", "86400.1"},
        {"max-length", "0.99", "1", "86400", "86400.1"},
        {"min-length", "-0.01", "0", "86400", "86400.1"},
        {"top", "0", "1", "10000", "10001"},
        {"continue", "-0.01", "0", "3600", "3600.1"},
        {"fps", "0.009", "0.01", "1000", "1000.1"},
        {"recap-speed", "0.99", "1", "32", "32.1"},
        {"bitrate", "-0.01", "0", "100", "100.01"},
        {"split", "0", "1", "100000", "100001"},
        {"threads", "-1", "0", "256", "257"},
        {"jobs", "0", "1", "256", "257"},
    };
    int ranges = 0;
    for (const ScanOption& option : scanOptions())
        ranges += int(option.range.has_value()) + int(option.ofCells.has_value());
    QCOMPARE(ranges, int(std::size(all)));
    for (const Bounds& bounds : all) {
        const QString name = bounds.name;
        const auto row = [&bounds, &name](const char* what, const char* value, bool isTaken) {
            QTest::addRow("%s with %s, %s", bounds.name, bounds.detector, what)
                << name << bounds.detector << value << isTaken;
        };
        row("one step below", bounds.below, false);
        row("lowest", bounds.lowest, true);
        row("highest", bounds.highest, true);
        row("one step above", bounds.above, false);
        row("no number", "many", false);
        if (scanOption(name).range->isWhole)
            row("not whole", "1.5", false);
    }
}

void TestOptions::rangesEndWhereTheySay() {
    QFETCH(QString, name);
    QFETCH(QString, detector);
    QFETCH(QString, value);
    QFETCH(bool, isTaken);
    const QStringList company =
        name == "split" ? QStringList{"--unmeasured", "--promising-first", "--values", "v"}
                        : QStringList{"--export", "out", "--recap", "f.mp4"};
    const CommandLine commandLine =
        parse(company + QStringList{"--detector", detector, "--" + name + '=' + value});
    if (isTaken) {
        QCOMPARE(commandLine.text, QString());
        return;
    }
    QCOMPARE(commandLine.action, CommandLine::Action::Reject);
    QVERIFY2(commandLine.text.startsWith("--" + name + " takes a "), qPrintable(commandLine.text));
    QVERIFY2(commandLine.text.endsWith(", not '" + value + '\''), qPrintable(commandLine.text));
}

void TestOptions::wordsAreTakenAsTheyAre_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("complaint");
    for (const char* word : {"text", "jsonl", "csv", "m3u", "mpv", "cuts", "edl", "mlt"})
        QTest::addRow("format %s", word) << "format" << word << "";
    for (const char* word : {"avi", "mp4", "mkv"})
        QTest::addRow("container %s", word) << "container" << word << "";
    for (const char* word : {"mean", "cells"})
        QTest::addRow("detector %s", word) << "detector" << word << "";
    for (const char* word : {"strength", "length", "time"})
        QTest::addRow("sort %s", word) << "sort" << word << "";
    QTest::newRow("no order")
        << "sort"
        << "lenght"
        << "--sort takes strength, length or time, not 'lenght' (did you mean length?)";
    QTest::newRow("no detector")
        << "detector"
        << "cell"
        << "--detector takes mean or cells, not 'cell' (did you mean cells?)";
    QTest::newRow("no format")
        << "format"
        << "xml"
        << "--format takes text, jsonl, csv, m3u, mpv, cuts, edl, mlt or camtrap-dp, not "
           "'xml' (did you mean edl?)";
    for (const char* word : {"opportunistic", "targeted", "experimental", "simpleRandom",
                             "systematicRandom", "clusteredRandom"})
        QTest::addRow("sampling %s", word) << "sampling-design" << word << "";
    QTest::newRow("no container")
        << "container"
        << "AVI"
        << "--container takes avi, mp4 or mkv, not 'AVI' (did you mean avi?)";
}

void TestOptions::wordsAreTakenAsTheyAre() {
    QFETCH(QString, name);
    QFETCH(QString, value);
    const bool isOfPackage = name == "sampling-design";
    QTEST(parse((isOfPackage ? package : QStringList()) +
                QStringList{"--export", "out", "--" + name, value})
              .text,
          "complaint");
}

void TestOptions::defaultsDependOnTheDetector() {
    const DetectionOptions mean = parse({}).options.detection;
    QCOMPARE(int(mean.detector), int(Detector::Mean));
    QCOMPARE(mean.segmentation.minimum, 5.0);
    QCOMPARE(mean.segmentation.motionThreshold.value, 0.5F);
    QVERIFY(!mean.areMapsKept);
    const DetectionOptions cells = parse({"--detector", "cells"}).options.detection;
    QCOMPARE(int(cells.detector), int(Detector::Cells));
    QCOMPARE(cells.segmentation.minimum, 2.0);
    QCOMPARE(cells.segmentation.motionThreshold.value, 0.7F);
    QCOMPARE(cells.cells.step, changedStep);
    QVERIFY(!cells.cells.isRestlessIgnored);
    const DetectionOptions asked =
        parse({"--detector", "cells", "--minimum", "5", "--threshold-motion", "20", "--sensitivity",
               "4", "--ignore-restless", "--values", "kept"})
            .options.detection;
    QCOMPARE(asked.segmentation.minimum, 5.0);
    QCOMPARE(asked.segmentation.motionThreshold.value, 20.0F);
    QCOMPARE(asked.cells.step, 1); // the faintest
    QVERIFY(asked.cells.isRestlessIgnored);
    QVERIFY(asked.areMapsKept);
    for (const char* text : {"1 to 3600 (5, with --detector cells 2).",
                             "0 to 10 (0.5), with --detector cells 0 to 100 (0.7)."})
        QVERIFY2(helpText().simplified().contains(text), text);
}

void TestOptions::optionsKeepCompany_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const QStringList& options, const QString& complaint) {
        QTest::addRow("%s", qPrintable(options.join(' '))) << options << complaint;
    };
    row({"--null"}, "--null needs --list");
    row({"--refine"}, "--refine needs --quick");
    row({"--refine", "--quick"}, "");
    row({"--quick", "--fps", "25"}, "--quick and --fps exclude each other");
    row({"--roi", "1,2,3,4", "--mask", "m.png"}, "--roi and --mask exclude each other");
    row({"--bitrate", "2"}, "--bitrate needs --export or --recap");
    row({"--bitrate", "2", "--recap", "f.avi"}, "");
    row({"--recap-speed", "2"}, "--recap-speed needs --recap");
    row({"--recap", "film"}, "--recap takes a name that ends in .avi, .mp4 or .mkv, not 'film'");
    row({"--marked", "m"}, "--marked needs --export or --recap");
    row({"--marked", "m", "--export", "e"},
        "--marked names the recordings itself: leave out 'garden.mp4'");
    row({"--marked", "m", "--export", "e", "--jobs", "2"},
        "--marked and --jobs exclude each other");
    row({"--part", "1/2", "--values", "v", "--recap", "f.avi"},
        "--part and --recap exclude each other");
    row({"--start-time", "2026-11-16T09:05:00"},
        "--start-time needs --export, --report, --recap or --format camtrap-dp");
    row({"--start-time", "2026-11-16T09:05:00", "--report", "r"}, "");
    row({"--start-time", "2026-11-16T09:05:00", "--time-zone", "Asia/Tokyo"}, "");
    row({"--start-time", "auto"}, "");
    row({"--start-time", "auto", "--part", "1/2", "--values", "v"},
        "--part and --start-time exclude each other");
    row({"--time-zone", "UTC"}, "--time-zone needs --start-time");
    row({"--start-pattern", "%F %T"}, "--start-pattern needs --start-time auto");
    row({"--start-pattern", "%F %T", "--report", "r", "--start-time", "2026-11-16"},
        "--start-pattern needs --start-time auto");
    row({"--start-time", "auto", "--start-pattern", "%F %T", "--time-zone", "Asia/Tokyo"}, "");
    row({"--start-time", "auto", "--time-zone", "Atlantis"},
        "--time-zone takes the name of a zone, such as Europe/Berlin or UTC, and this machine "
        "knows none called 'Atlantis'");
    row({"--start-time", "auto", "--time-zone", "../../etc/passwd"},
        "--time-zone takes the name of a zone, such as Europe/Berlin or UTC, and this machine "
        "knows none called '../../etc/passwd'");
    row({"--start-time", "auto", "--start-pattern", "%H%M%S"},
        "--start-pattern takes names like %Y%m%d_%H%M%S, not '%H%M%S': it has no whole day, as "
        "%Y%m%d is one");
    row({"--sensitivity", "4"}, "--sensitivity needs --detector cells");
    row({"--sensitivity", "4", "--detector", "mean"}, "--sensitivity needs --detector cells");
    row({"--detector", "cells", "--sensitivity", "4", "--ignore-restless"}, "");
    row({"--ignore-restless"}, "--ignore-restless needs --detector cells, and excludes --refine");
    row({"--ignore-restless", "--detector", "cells", "--quick"}, "");
    row({"--ignore-restless", "--detector", "cells", "--quick", "--refine"},
        "--ignore-restless needs --detector cells, and excludes --refine");
    row({"--unmeasured"}, "--unmeasured needs --values, and excludes --part");
    row({"--unmeasured", "--values", "v", "--part", "1/2"},
        "--unmeasured needs --values, and excludes --part");
    row({"--part", "1/2"}, "--part needs --values");
    row({"--part", "1/2", "--values", "v", "--merge", "1"},
        "--part and --merge exclude each other");
    row({"--output", "pkg"}, "--output needs --format camtrap-dp");
    row({"--location", "1,2", "--format", "csv"}, "--location needs --format camtrap-dp");
    row({"--part", "1/2", "--values", "v", "--top", "3"}, "--part and --top exclude each other");
    row({"--max-length", "5", "--quick"}, "--max-length and --quick exclude each other");
    row({"--max-length", "5", "--min-length", "5"}, "");
    row({"--max-length", "5", "--min-length", "5.1"}, "--min-length must not exceed --max-length");
    row({"--continue", "--merge", "0", "--quick", "--values", "v"}, "");
    row({"--continue", "--quick", "--refine"}, "--continue and --refine exclude each other");
    row({"--continue", "--max-length", "5", "--min-length", "2", "--sort", "time", "--top", "3"},
        "");
    row({"--continue=5", "--from", "3"}, "--continue and --from exclude each other");
    row({"--continue", "--detector", "cells", "--ignore-restless"},
        "--continue and --ignore-restless exclude each other");
    row({"--verbose"}, "");
    row({"--verbose", "--quiet"}, "--verbose and --quiet exclude each other");
    row({"--promising-first", "--values", "v", "--jobs", "2"}, "");
    row({"--promising-first", "--continue"}, "--continue and --promising-first exclude each other");
    row({"--promising-first", "--quick"}, "--promising-first and --quick exclude each other");
    row({"--split", "5", "--unmeasured", "--values", "v"},
        "--split needs --unmeasured and --promising-first");
    row({"--split", "5", "--promising-first"}, "--split needs --unmeasured and --promising-first");
    row({"--budget", "5%"}, "--budget needs --promising-first");
    row({"--budget", "1.5h", "--promising-first"}, "");
    row({"--snapshots="}, "--snapshots needs a name");
    row({"--list", "l", "--list="}, "--list needs a name");
}

void TestOptions::optionsKeepCompany() {
    QFETCH(QStringList, options);
    QTEST(parse(options).text, "complaint");
}

void TestOptions::packagesNeedWhatNobodyKnows_data() {
    QTest::addColumn<QString>("missing");
    for (const char* option : {"output", "start-time", "location", "project", "contributor"})
        QTest::addRow("%s", option) << option;
}

void TestOptions::packagesNeedWhatNobodyKnows() {
    QFETCH(QString, missing);
    QCOMPARE(parse(package).text, QString());
    QStringList options = package;
    const int place = options.indexOf("--" + missing);
    options[place + 1] = QString();
    QVERIFY(parse(options).text.startsWith("--" + missing + ' '));
    options.erase(options.begin() + place, options.begin() + place + 2);
    QCOMPARE(parse(options).text, "--format camtrap-dp needs --" + missing);
}

void TestOptions::locationsAreDegrees_data() {
    QTest::addColumn<QStringList>("locations");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const QStringList& locations, const QString& complaint = {}) {
        QTest::addRow("%s", qPrintable(locations.join(' '))) << locations << complaint;
    };
    row({"-90,180"});
    row({"90,-180", "/cams/a=b=0,0.5", "cams=1e1,-2"});
    row({"cams=1,2", "cams=3,4"}, "--location is given twice for 'cams'");
    row({"cams=1,2", "./cams/=3,4"}, "--location is given twice for './cams/'");
    row({"1,2", "3,4"}, "--location is given twice without a folder");
    for (const char* bad : {"90.1,0", "0,-180.1", "52.5", "52.5,13.25,40", "52,5 13,25", "nan,0",
                            "0,inf", "north", "=1,2", "cams=", "52.5;13.25"})
        row({bad}, QStringLiteral("--location takes degrees of latitude and longitude as in "
                                  "52.70442,23.84995 or FOLDER=52.70442,23.84995, not '%1'")
                       .arg(bad));
}

void TestOptions::locationsAreDegrees() {
    QFETCH(QStringList, locations);
    QStringList options = package;
    const int place = options.indexOf("--location");
    options.erase(options.begin() + place, options.begin() + place + 2);
    for (const QString& location : locations)
        options += {"--location", location};
    const CommandLine commandLine = parse(options);
    QTEST(commandLine.text, "complaint");
    if (locations.size() != 3)
        return;
    const CamtrapOptions& camtrap = commandLine.options.camtrap;
    QCOMPARE(camtrap.directory, QString("pkg"));
    QCOMPARE(camtrap.project.contributors, QStringList{"Anna"});
    QCOMPARE(camtrap.project.samplingDesign, QString("opportunistic"));
    QCOMPARE(camtrap.locations[0].folder, QString());
    QCOMPARE(camtrap.locations[0].longitude, -180.0);
    QCOMPARE(camtrap.locations[1].folder, QString("/cams/a=b"));
    QCOMPARE(camtrap.locations[1].longitude, 0.5);
    QCOMPARE(camtrap.locations[2].latitude, 10.0);
}

void TestOptions::valuesCanBeLeftOut() {
    QVERIFY(!parse({}).options.continuing);
    for (const char* bare : {"--continue", "-continue", "--continue=2"})
        QCOMPARE(parse({bare}).options.continuing.value_or(-1), 2.0);
    QCOMPARE(parse({"--continue=0.5"}).options.continuing.value_or(-1), 0.5);
    QCOMPARE(parse({"--continue="}).text,
             QString("--continue takes a number from 0 to 3600, not ''"));
    // What follows it is a recording, and what follows two dashes is one, too.
    QCOMPARE(parse({"--continue", "3"}).options.inputs.videos, QStringList({"garden.mp4", "3"}));
    const ScanOptions named = parse({"--", "--continue"}).options;
    QCOMPARE(named.inputs.videos, QStringList({"garden.mp4", "--continue"}));
    QVERIFY(!named.continuing);
    QVERIFY(helpText().contains("\n  --continue[=S] "));
}

void TestOptions::theTableNamesItsOwn() {
    for (const ScanOption& option : scanOptions()) {
        for (const QString& other : option.needs + option.excludes) {
            const QString name = other.section(' ', 0, 0);
            QVERIFY2(allNames().contains(name), qPrintable(option.name + ": " + other));
            const QString value = other.section(' ', 1);
            QVERIFY2(value.isEmpty() || scanOption(name).words.contains(value), qPrintable(other));
        }
    }
}

void TestOptions::listIsForPrograms() {
    const CommandLine commandLine = parse({"--list-options"});
    QCOMPARE(commandLine.action, CommandLine::Action::PrintText);
    QStringList names;
    QStringList measuring;
    for (const QString& line : commandLine.text.split('\n', Qt::SkipEmptyParts)) {
        const QStringList fields = line.split('\t');
        QCOMPARE(fields.size(), fields[0] == "continue" ? 4 : 3);
        names += fields[0];
        if (fields[2] == "measuring")
            measuring += fields[0];
    }
    QCOMPARE(names, allNames());
    QCOMPARE(measuring, QStringList({"detector", "skip", "threshold-value", "fps", "quick", "from",
                                     "to", "roi", "mask", "exclude"}));
    for (const char* line :
         {"continue\tnumber\t-\t2\n", "quiet\tnone\t-\n", "skip\tnumber\tmeasuring\n",
          "format\tword\t-\n", "mask\tfile\tmeasuring\n", "values\tfolder\t-\n",
          "from\ttext\tmeasuring\n"})
        QVERIFY2(commandLine.text.contains(line), line);
}

void TestOptions::valuesDependOnTheirOptions() {
    QStringList keys;
    for (const HeadLine& line : measureSettings({}))
        keys += line.key;
    for (const ScanOption& option : scanOptions())
        QVERIFY2(option.valuesKey.isEmpty() || keys.contains(option.valuesKey),
                 qPrintable(option.name));
}

void TestOptions::keptSettingsTellTheirOptions_data() {
    QTest::addColumn<QStringList>("kept");
    QTest::addColumn<bool>("canBeTold");
    const QStringList excluded = {"--exclude", "1,2,3,4", "--exclude", "-5,6,7,8"};
    QTest::newRow("defaults") << QStringList{} << true;
    QTest::newRow("numbers") << QStringList{"--threshold-value", "7", "--skip", "3"} << true;
    QTest::newRow("key frames") << QStringList{"--quick"} << true;
    QTest::newRow("rectangle") << QStringList{"--roi", "-1,20,300,4000"} << true;
    QTest::newRow("excluded") << excluded << true;
    QTest::newRow("both") << excluded + QStringList{"--roi", "9,8,7,6"} << true;
    QTest::newRow("mask") << QStringList{"--mask", mask} << false;
}

/// Whatever the call's own options are.
void TestOptions::keptSettingsTellTheirOptions() {
    QFETCH(QStringList, kept);
    QFETCH(bool, canBeTold);
    const DetectionOptions before = parse(kept).options.detection;
    const MeasureSettings settings = measureSettings(before);
    for (const QStringList& asked : {QStringList{}, QStringList{"--roi", "5,5,5,5"},
                                     QStringList{"--skip", "2", "--exclude", "1,1,1,1"}}) {
        const auto told = measuredWith(settings, parse(asked).options.detection);
        QCOMPARE(told.has_value(), canBeTold);
        QVERIFY(!told || measureSettings(*told) == settings);
    }
    QVERIFY(measuredWith(settings, before).has_value()); // the same mask is at hand
    MeasureSettings forged = settings;
    for (HeadLine& line : forged) {
        if (line.key == "region")
            line.value = "rectangle 2147483647,0,2147483647,1";
    }
    QVERIFY(!measuredWith(forged, before).has_value());
    for (const char* key : {"skip", "threshold-value"}) {
        forged = settings;
        for (HeadLine& line : forged) {
            if (line.key == key)
                line.value = "-1";
        }
        QVERIFY(!measuredWith(forged, before).has_value());
    }
}

void TestOptions::helpNamesEverything() {
    const QString help = parse({"--help"}).text;
    QCOMPARE(namedIn(help), allNames());
    for (const ScanOption& option : scanOptions()) {
        QVERIFY2(help.contains('\n' + groupTitle(option.group) + ":\n"), qPrintable(option.name));
        const QString limits = QString(help).simplified();
        QVERIFY2(option.fallback.isEmpty() || limits.contains(option.limits() + '.'),
                 qPrintable(option.name));
    }
    for (const ExitMeaning& exit : exitMeanings())
        QVERIFY(help.simplified().contains(QString::number(exit.status) + ' ' + exit.meaning));
}

void TestOptions::helpFitsATerminal() {
    for (const QString& line : helpText().split('\n'))
        QVERIFY2(line.size() < 80, qPrintable(line));
}

void TestOptions::manPageNamesEverything() {
    QString page = manPage("1.0", "2026-01-02");
    QVERIFY(page.startsWith(".TH KESTROVA\\-SCAN 1 2026-01-02 \"kestrova 1.0\""));
    QCOMPARE(namedIn(page.replace("\\-", "-")), allNames());
}

void TestOptions::completionsNameEverything() {
    for (const QString& text : {bashCompletion(), zshCompletion(), fishCompletion()})
        QCOMPARE(namedIn(text), allNames());
}

void TestOptions::bashCompletesWordsAndNames() {
    const QString ask = bashCompletion() +
                        "ask() { COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); COMPREPLY=()\n"
                        "  _kestrova_scan 2>/dev/null; echo \"${COMPREPLY[*]}\"; }\n"
                        "ask kestrova-scan --container ''\n"
                        "ask kestrova-scan --format js\n"
                        "ask kestrova-scan --format = cs\n"
                        "ask kestrova-scan --thresh\n"
                        "ask kestrova-scan --detector ''\n";
    QCOMPARE(run("bash", {}, ask),
             QByteArray("okavi mp4 mkv\njsonl\ncsv\n--threshold-value --threshold-motion\n"
                        "mean cells\n"));
}

void TestOptions::zshRepeatsOptions() {
    static const QRegularExpression repeated("--(contributor|exclude|list|location)\\[");
    for (const QString& line : zshCompletion().split('\n'))
        QCOMPARE(line.startsWith("  '*--"), line.contains(repeated));
}

void TestOptions::pagesAreUpToDate() {
    QVERIFY2(between(source("docs/scanner.md")) == markdownOptions(), "run scripts/options");
    QVERIFY2(between(source("docs/clocks.md")) == markdownNames(), "run scripts/options");
    QVERIFY2(between(source("docs/formats.md")) == markdownFields(), "run scripts/options");
}

void TestOptions::manualIsUpToDate() {
    QVERIFY2(between(source("docs/manual/manual.html")) == htmlOptionTables(),
             "run scripts/options");
}

QTEST_GUILESS_MAIN(TestOptions)
#include "test_options.moc"
