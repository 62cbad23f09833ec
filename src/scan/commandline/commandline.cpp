// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commandline.h"

#include "celldefaults.h"
#include "clocktext.h"
#include "inputs.h"
#include "namedvalues.h"
#include "optiontable.h"
#include "optiontext.h"
#include "optionvalues.h"
#include "regionoptions.h"
#include "suggestion.h"
#include "versiontext.h"

#include <QCommandLineParser>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <system_error>

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

ReportFormat readFormat(OptionValues& values) {
    const int place = scanOption("format").words.indexOf(values.word("format"));
    return place < 0 ? ReportFormat::Text : ReportFormat(place);
}

/// The time of the clock on the wall, which knows of no zones: no clock is put forward in it, as
/// this machine's may be, and a zone would promise times that nobody reckons.
QDateTime readStartTime(const QString& text, OptionValues& values) {
    static const QRegularExpression zone(QStringLiteral("[T ].*(Z|z|[+-][0-9:]+)$"));
    const auto match = zone.match(text);
    if (match.hasMatch())
        values.reject(
            QStringLiteral("--start-time takes the time of a clock on the wall, which has "
                           "no zone: leave out '%1'")
                .arg(match.captured(1)));
    QDateTime time;
    for (const char* utc : {"Z", "T00:00Z"}) {
        if (!time.isValid())
            time = QDateTime::fromString(text + QLatin1String(utc), Qt::ISODate);
    }
    if (!time.isValid())
        values.reject(QStringLiteral("--start-time takes a time like 2026-11-16T09:05:00, not '%1'")
                          .arg(text));
    return {time.date(), time.time(), Qt::UTC};
}

ExportOptions readExport(const QCommandLineParser& parser, OptionValues& values) {
    ExportOptions options;
    options.directory = parser.value("export");
    options.encoding.container = containerNamed(values.word("container")).value_or(Container::Avi);
    options.encoding.doTranscoding = parser.isSet("transcode");
    options.encoding.disableAudio = parser.isSet("no-audio");
    options.encoding.bitrateOutput = values.number("bitrate");
    if (parser.isSet("start-time"))
        options.startDateTime = readStartTime(parser.value("start-time"), values);
    return options;
}

/// Whether both paths lead to one file, through links of either kind.
bool isSameFile(const QString& left, const QString& right) {
    std::error_code none;
    return std::filesystem::equivalent(QFile::encodeName(left).toStdString(),
                                       QFile::encodeName(right).toStdString(), none);
}

QStringList listsOf(const QCommandLineParser& parser) {
    return parser.isSet("list") ? parser.values("list") : QStringList();
}

/// A trace must not empty what is read.
void checkTrace(const ScanOptions& options, const QCommandLineParser& parser,
                OptionValues& values) {
    const QString& trace = options.traceFile;
    if (trace.isEmpty())
        return;
    const auto check = [&](const char* what, const QString& file) {
        if (isSameFile(trace, file))
            values.reject(QStringLiteral("--trace would overwrite the %1 '%2'").arg(what, file));
    };
    for (const QString& video : options.inputs.videos)
        check("video", video);
    for (const QString& values : options.inputs.videos)
        check("video", recordingOfValues(values).value_or(values));
    check("mask", parser.value("mask"));
    for (const QString& list : listsOf(parser))
        check("list", list);
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
    if (!parser.parse(arguments))
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
    options.mergeGap = values.givenNumber("merge");
    options.format = readFormat(values);
    options.snapshotDirectory = parser.value("snapshots");
    options.reportDirectory = parser.value("report");
    options.exporting = readExport(parser, values);
    options.traceFile = parser.value("trace");
    options.valuesDirectory = parser.value("values");
    options.givenOptions = parser.optionNames();
    options.isMissingAsked = parser.isSet("unmeasured");
    options.jobs = values.integer("jobs");
    options.quiet = parser.isSet("quiet");
    values.checkCompany();
    if (parser.positionalArguments().isEmpty() && !parser.isSet("list"))
        values.reject(QStringLiteral("no video named"));
    if (parser.positionalArguments().contains(QString()))
        values.reject(QStringLiteral("an empty name is no recording"));
    // A list on standard input is waited for, which nobody wants before an error.
    if (values.error.isEmpty())
        options.inputs = readInputs(parser);
    checkTrace(options, parser, values);
    if (!values.error.isEmpty())
        return {CommandLine::Action::Reject, {}, values.error};
    const bool areNamesWanted = parser.isSet("names") || options.isMissingAsked;
    return {
        areNamesWanted ? CommandLine::Action::PrintNames : CommandLine::Action::Scan, options, {}};
}
