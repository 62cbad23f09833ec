// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commandline.h"

#include "camtrapreading.h"
#include "celldefaults.h"
#include "clockreading.h"
#include "clocktext.h"
#include "inputs.h"
#include "namedvalues.h"
#include "optiontable.h"
#include "optiontext.h"
#include "optionvalues.h"
#include "regionoptions.h"
#include "responsefile.h"
#include "samefile.h"
#include "suggestion.h"
#include "versiontext.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

void addOptions(QCommandLineParser& parser) {
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const ScanOption& option : scanOptions()) {
        QStringList names = {option.name};
        if (!option.letter.isNull())
            names.prepend(option.letter);
        parser.addOption({names, option.help, option.value, option.fallback});
    }
}

/// The parser knows of no values that may be left out.
QStringList withBareValues(QStringList arguments) {
    for (const ScanOption& option : scanOptions()) {
        if (option.bare.isEmpty())
            continue;
        const auto end = std::find(arguments.begin(), arguments.end(), QStringLiteral("--"));
        for (const char* dashes : {"-", "--"})
            std::replace(arguments.begin(), end, QLatin1String(dashes) + option.name,
                         QStringLiteral("--%1=%2").arg(option.name, option.bare));
    }
    return arguments;
}

/// Why the command line could not be taken apart.
QString whatIsUnknown(const QCommandLineParser& parser) {
    QString text = parser.errorText();
    const QStringList unknown = parser.unknownOptionNames();
    if (text.endsWith('.'))
        text.chop(1);
    if (unknown.isEmpty())
        return text;
    return text + suggestion(unknown.first(), optionNames(), QStringLiteral("--"));
}

SelectionOptions readSelection(const QCommandLineParser& parser, OptionValues& values) {
    SelectionOptions options;
    options.longest = values.givenNumber("max-length");
    options.shortest = values.givenNumber("min-length").value_or(0.0);
    if (options.longest && options.shortest > *options.longest)
        values.reject(QStringLiteral("--min-length must not exceed --max-length"));
    if (parser.isSet("sort"))
        options.order = ClipOrder(scanOption("sort").words.indexOf(values.word("sort")));
    if (parser.isSet("top"))
        options.most = values.integer("top");
    return options;
}

ReportFormat readFormat(OptionValues& values) {
    const int place = scanOption("format").words.indexOf(values.word("format"));
    return place < 0 ? ReportFormat::Text : ReportFormat(place);
}

ExportOptions readExport(const QCommandLineParser& parser, OptionValues& values) {
    ExportOptions options;
    options.directory = parser.value("export");
    options.encoding.container = containerNamed(values.word("container")).value_or(Container::Avi);
    options.encoding.doTranscoding = parser.isSet("transcode");
    options.encoding.disableAudio = parser.isSet("no-audio");
    options.encoding.bitrateOutput = values.number("bitrate");
    options.areTimesWritten = parser.isSet("start-time");
    return options;
}

/// The container of the recap is told by its name.
RecapOptions readRecap(const QCommandLineParser& parser, OptionValues& values) {
    RecapOptions options;
    options.file = parser.value("recap");
    options.speed = values.number("recap-speed");
    options.megabits = values.number("bitrate");
    const auto container = containerNamed(QFileInfo(options.file).suffix().toLower());
    if (!options.file.isEmpty() && !container)
        values.reject(
            QStringLiteral("--recap takes a name that ends in .avi, .mp4 or .mkv, not '%1'")
                .arg(options.file));
    options.container = container.value_or(options.container);
    return options;
}

/// Marks name recordings and clips, so that whatever searches has no place beside them.
void checkMarked(const QCommandLineParser& parser, OptionValues& values) {
    if (!parser.isSet("marked"))
        return;
    const QStringList fitting = {QStringLiteral("marked"), QStringLiteral("fps"),
                                 QStringLiteral("quiet")};
    for (const ScanOption& option : scanOptions()) {
        const bool isFitting = option.group == OptionGroup::Export || fitting.contains(option.name);
        if (parser.isSet(option.name) && !isFitting)
            values.reject(QStringLiteral("--marked and --%1 exclude each other").arg(option.name));
    }
    if (!parser.positionalArguments().isEmpty())
        values.reject(QStringLiteral("--marked names the recordings itself: leave out '%1'")
                          .arg(parser.positionalArguments().first()));
}

QStringList listsOf(const QCommandLineParser& parser) {
    return parser.isSet("list") ? parser.values("list") : QStringList();
}

/// What is written must not take the place of what is read.
void checkOverwriting(const char* option, const ScanOptions& options,
                      const QCommandLineParser& parser, const QStringList& responseFiles,
                      OptionValues& values) {
    if (!parser.isSet(option))
        return;
    const auto check = [&](const char* what, const QString& file) {
        if (isSameFile(parser.value(option), file))
            values.reject(
                QStringLiteral("--%1 would overwrite the %2 '%3'").arg(option, what, file));
    };
    for (const QString& video : options.inputs.videos)
        check("video", video);
    for (const QString& values : options.inputs.videos)
        check("video", recordingOfValues(values).value_or(values));
    check("mask", parser.value("mask"));
    check("file of marks", parser.value("marked"));
    for (const QString& list : listsOf(parser))
        check("list", list);
    for (const QString& file : responseFiles)
        check("response file", file);
}

Inputs readInputs(const QCommandLineParser& parser) {
    Inputs inputs;
    for (const QString& path : parser.positionalArguments())
        addNamed(path, inputs);
    for (const QString& list : listsOf(parser))
        addListed(list, parser.isSet("null") ? '\0' : '\n', inputs);
    return inputs;
}

void readTime(const QCommandLineParser& parser, const char* option, double& seconds,
              OptionValues& values) {
    if (!parser.isSet(option))
        return;
    const auto time = secondsOf(parser.value(option));
    if (!time)
        values.reject(QStringLiteral("--%1 takes seconds or a time like 1:02:03.5, not '%2'")
                          .arg(option, parser.value(option)));
    seconds = time.value_or(0.0);
}

TimeRange readRange(const QCommandLineParser& parser, OptionValues& values) {
    TimeRange range;
    readTime(parser, "from", range.from, values);
    readTime(parser, "to", range.to, values);
    if (range.from >= range.to)
        values.reject(QStringLiteral("--to must lie behind --from"));
    return range;
}

std::optional<RecordingPart> readPart(const QCommandLineParser& parser, OptionValues& values) {
    if (!parser.isSet("part"))
        return std::nullopt;
    const QStringList numbers = parser.value("part").split(QLatin1Char('/'));
    RecordingPart part{numbers.value(0).toInt(), numbers.value(1).toInt()};
    constexpr int mostParts = 9999; // as names of values files have room for
    if (numbers.size() != 2 || part.index < 1 || part.index > part.count || part.count > mostParts)
        values.reject(QStringLiteral("--part takes one of up to 9999 parts, as in 2/3, not '%1'")
                          .arg(parser.value("part")));
    return part;
}

/// Seconds.
std::optional<double> readSplit(const QCommandLineParser& parser, OptionValues& values) {
    if (!parser.isSet("split"))
        return std::nullopt;
    const int minutes = values.integer("split");
    if (!parser.isSet("unmeasured") || !parser.isSet("promising-first"))
        values.reject(QStringLiteral("--split needs --unmeasured and --promising-first"));
    return 60.0 * minutes;
}

/// A share of the recordings' length, or a time on the wall's clock.
std::optional<SearchLimit> readBudget(const QCommandLineParser& parser, OptionValues& values) {
    if (!parser.isSet("budget"))
        return std::nullopt;
    static const QRegularExpression form(QStringLiteral("^([0-9]+(?:\\.[0-9]+)?)(%|s|m|h)$"));
    const auto match = form.match(parser.value("budget"));
    const double number = match.captured(1).toDouble();
    const QString unit = match.captured(2);
    const bool isShare = unit == QLatin1String("%");
    if (!match.hasMatch() || number <= 0.0 || (isShare && number > 100.0)) {
        values.reject(
            QStringLiteral("--budget takes a share above 0% and up to 100%, or a time, as in "
                           "25%, 90s, 10m or 2h, not '%1'")
                .arg(parser.value("budget")));
        return std::nullopt;
    }
    SearchLimit limit;
    if (isShare)
        limit.share = number / 100.0;
    else
        limit.seconds = number * (unit == QLatin1String("h")   ? 3600.0
                                  : unit == QLatin1String("m") ? 60.0
                                                               : 1.0);
    return limit;
}

DetectionOptions readDetection(const QCommandLineParser& parser, OptionValues& values) {
    DetectionOptions options;
    options.segmentation.prerecord = values.number("prerecord");
    options.segmentation.postrecord = values.number("postrecord");
    options.segmentation.minimum = values.number("minimum");
    options.segmentation.motionThreshold.value = float(values.number("threshold-motion"));
    options.detector = values.word("detector") == "cells" ? Detector::Cells : Detector::Mean;
    options.cells.step = stepOf(values.integer("sensitivity"));
    options.cells.isRestlessIgnored = parser.isSet("ignore-restless");
    options.areMapsKept = parser.isSet("values");
    options.measure.pixelThreshold = values.integer("threshold-value");
    options.measure.skip = values.integer("skip");
    options.times.mustBeUsable = true;
    options.times.frameRate = values.givenNumber("fps").value_or(0.0);
    options.range = readRange(parser, values);
    options.isKeyframesOnly = parser.isSet("quick");
    options.threads = values.integer("threads");
    options.measure.region = readRegion(parser, values);
    return options;
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    addOptions(parser);
    const ExpandedArguments expanded = expandResponseFiles(arguments);
    if (!expanded.error.isEmpty())
        return {CommandLine::Action::Reject, {}, expanded.error};
    if (!parser.parse(withBareValues(expanded.arguments)))
        return {CommandLine::Action::Reject, {}, whatIsUnknown(parser)};
    if (parser.isSet("help"))
        return {CommandLine::Action::PrintText, {}, helpText()};
    if (parser.isSet("version"))
        return {CommandLine::Action::PrintText, {}, versionText()};
    if (parser.isSet("list-options"))
        return {CommandLine::Action::PrintText, {}, optionList()};

    OptionValues values(parser);
    ScanOptions options;
    options.detection = readDetection(parser, values);
    options.isRefined = parser.isSet("refine");
    options.part = readPart(parser, values);
    options.isPromisingFirst = parser.isSet("promising-first");
    options.partSeconds = readSplit(parser, values);
    options.limit = readBudget(parser, values);
    options.mergeGap = values.givenNumber("merge");
    options.selection = readSelection(parser, values);
    options.continuing = values.givenNumber("continue");
    options.format = readFormat(values);
    options.snapshotDirectory = parser.value("snapshots");
    options.reportDirectory = parser.value("report");
    options.exporting = readExport(parser, values);
    options.clock = readClock(parser, values);
    options.camtrap = readCamtrap(parser, values);
    options.recap = readRecap(parser, values);
    options.marksFile = parser.value("marked");
    options.traceFile = parser.value("trace");
    options.valuesDirectory = parser.value("values");
    options.givenOptions = parser.optionNames();
    options.isMissingAsked = parser.isSet("unmeasured");
    options.jobs = values.integer("jobs");
    options.quiet = parser.isSet("quiet");
    options.isVerbose = parser.isSet("verbose");
    values.checkCompany();
    checkMarked(parser, values);
    const bool areNamed = !parser.positionalArguments().isEmpty() || parser.isSet("list");
    if (!areNamed && !parser.isSet("marked"))
        values.reject(QStringLiteral("no video named"));
    if (parser.positionalArguments().contains(QString()))
        values.reject(QStringLiteral("an empty name is no recording"));
    // A list on standard input is waited for, which nobody wants before an error.
    if (values.error.isEmpty())
        options.inputs = readInputs(parser);
    checkOverwriting("trace", options, parser, expanded.files, values);
    checkOverwriting("recap", options, parser, expanded.files, values);
    if (!values.error.isEmpty())
        return {CommandLine::Action::Reject, {}, values.error};
    const bool areNamesWanted = parser.isSet("names") || options.isMissingAsked;
    return {
        areNamesWanted ? CommandLine::Action::PrintNames : CommandLine::Action::Scan, options, {}};
}
