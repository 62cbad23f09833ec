#include "commandline.h"

#include <QCommandLineParser>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <system_error>

namespace {

// Lines end before column 79, where the option list below wraps as well.
const char description[] =
    "Finds the stretches of recordings in which something moves and prints them\n"
    "as clips.\n"
    "\n"
    "Every picture is compared with the one before it. A clip opens when motion\n"
    "fills half of the last --minimum seconds, starts --prerecord seconds before\n"
    "them, and ends when there has been no motion for --postrecord seconds.\n"
    "\n"
    "With --export each clip is also cut out into a file of its own, in a folder\n"
    "for each video, by the encoder beside this program.\n"
    "\n"
    "Exit status: 0 every video was read to its end and every clip exported that\n"
    "should be, 1 some could not be (the others were), 2 the command line is\n"
    "wrong, 130 interrupted (the open clip is still printed).";

/// The message for the first thing that is wrong, if any.
class Values {
public:
    explicit Values(const QCommandLineParser& parser)
        : parser(parser) {}

    double number(const QString& option, double lowest, double highest) {
        bool isNumber = false;
        const double value = parser.value(option).toDouble(&isNumber);
        if (!isNumber || !(value >= lowest && value <= highest))
            reject(option, lowest, highest, QStringLiteral("a number"));
        return value;
    }

    int integer(const QString& option, int lowest, int highest) {
        bool isNumber = false;
        const int value = parser.value(option).toInt(&isNumber);
        if (!isNumber || value < lowest || value > highest)
            reject(option, lowest, highest, QStringLiteral("a whole number"));
        return value;
    }

    void reject(const QString& message) {
        if (error.isEmpty())
            error = message;
    }

    QString error;

private:
    void reject(const QString& option, double lowest, double highest, const QString& kind) {
        reject(QStringLiteral("--%1 takes %2 from %3 to %4, not '%5'")
                   .arg(option, kind)
                   .arg(lowest)
                   .arg(highest)
                   .arg(parser.value(option)));
    }

    const QCommandLineParser& parser;
};

void addOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(QString::fromLatin1(description));
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addPositionalArgument("VIDEO", "A recording. Each is read on its own.", "VIDEO...");
    parser.addOptions({
        {"prerecord", "Seconds kept before the motion, 1 to 3600 (1).", "S", "1"},
        {"postrecord", "Seconds without motion that end a clip, 1 to 3600 (1).", "S", "1"},
        {"minimum", "Seconds of which motion must fill half for a clip to open, 1 to 3600 (5).",
         "S", "5"},
        {"skip", "Pictures left out between two comparisons, 0 to 100 (0).", "N", "0"},
        {"threshold-value",
         "How much a pixel must change to count, 0 to 255 (35). More for noisy videos.", "N", "35"},
        {"threshold-motion",
         "Mean change of the pixels that is motion, 0 to 10 (0.5). More for fewer clips.", "X",
         "0.5"},
        {"roi", "Look only inside this rectangle, in pixels of the video.", "X,Y,WIDTH,HEIGHT"},
        {"mask", "Look only where this picture is green; it is scaled to the video.", "PICTURE"},
        {"format", "How clips are printed: text, jsonl or csv (text).", "FORMAT", "text"},
        {"snapshots", "Write a picture of each clip's strongest motion into this folder.", "DIR"},
        {"fps",
         "Take recordings to be N pictures per second, 0.01 to 1000, whatever times they have.",
         "N"},
        {"export", "Cut the clips out into this folder.", "DIR"},
        {"container", "File format of exported clips: avi, mp4 or mkv (avi).", "NAME", "avi"},
        {"transcode", "Encode exported pictures anew. MJPEG always is, and so are timestamps."},
        {"bitrate", "Megabits per second of pictures encoded anew, 0 to 100 (2).", "MBIT", "2"},
        {"no-audio", "Leave the sound out of exported clips."},
        {"start-time",
         "Write date and time into exported pictures; each video began at this one, in ISO 8601.",
         "TIME"},
        {"trace",
         "Write each picture's number, time and motion value, for choosing the thresholds.",
         "FILE"},
        {"threads",
         "Threads that decode a recording, 0 to 256; 0 is one per core, shared among --jobs (0).",
         "N", "0"},
        {"jobs", "Recordings scanned side by side, 1 to 256 (1). Lines stay in order.", "N", "1"},
        {"quiet", "No progress and no summary, only clips and errors."},
        {{"h", "help"}, "Print this text."},
        {{"v", "version"}, "Print the version."},
    });
}

QString expectedRectangle() {
    return QStringLiteral(
        "--roi takes X,Y,WIDTH,HEIGHT in whole pixels, WIDTH and HEIGHT at least 1");
}

void readRectangle(const QString& text, RegionOfInterest& region, Values& values) {
    const QStringList parts = text.split(',');
    std::array<int, 4> numbers{};
    bool isGood = parts.size() == int(numbers.size());
    for (int i = 0; isGood && i < parts.size(); ++i)
        numbers[std::size_t(i)] = parts[i].toInt(&isGood);
    const auto [x, y, width, height] = numbers;
    // Far corners must still fit an int.
    constexpr int farthest = 1 << 30;
    const bool isNear = std::abs(double(x)) <= farthest && std::abs(double(y)) <= farthest &&
                        width <= farthest && height <= farthest;
    if (!isGood || !isNear || width < 1 || height < 1) {
        values.reject(expectedRectangle());
        return;
    }
    region.kind = RegionOfInterest::Kind::Rectangle;
    region.rectangle = QRect(x, y, width, height);
}

void readMask(const QString& fileName, RegionOfInterest& region, Values& values) {
    QImageReader reader(fileName);
    region.kind = RegionOfInterest::Kind::Mask;
    region.mask = reader.read();
    if (region.mask.isNull())
        values.reject(
            QStringLiteral("cannot read the mask '%1': %2").arg(fileName, reader.errorString()));
}

ReportFormat readFormat(const QString& name, Values& values) {
    if (name == QLatin1String("jsonl"))
        return ReportFormat::JsonLines;
    if (name == QLatin1String("csv"))
        return ReportFormat::Csv;
    if (name != QLatin1String("text"))
        values.reject(QStringLiteral("--format takes text, jsonl or csv, not '%1'").arg(name));
    return ReportFormat::Text;
}

Container readContainer(const QString& name, Values& values) {
    const auto container = containerNamed(name);
    if (!container)
        values.reject(QStringLiteral("--container takes avi, mp4 or mkv, not '%1'").arg(name));
    return container.value_or(Container::Avi);
}

/// The time of the clock on the wall: an offset from UTC does not change it, and no clock is put
/// forward in it, as this machine's may be.
QDateTime readStartTime(const QString& text, Values& values) {
    QDateTime time;
    for (const char* zone : {"Z", "T00:00Z", ""}) {
        if (!time.isValid())
            time = QDateTime::fromString(text + QLatin1String(zone), Qt::ISODate);
    }
    if (!time.isValid())
        values.reject(QStringLiteral("--start-time takes a time like 2026-11-16T09:05:00, not '%1'")
                          .arg(text));
    return {time.date(), time.time(), Qt::UTC};
}

ExportOptions readExport(const QCommandLineParser& parser, Values& values) {
    ExportOptions options;
    options.directory = parser.value("export");
    options.encoding.container = readContainer(parser.value("container"), values);
    options.encoding.doTranscoding = parser.isSet("transcode");
    options.encoding.disableAudio = parser.isSet("no-audio");
    options.encoding.bitrateOutput = values.number("bitrate", 0.0, 100.0);
    if (parser.isSet("start-time"))
        options.startDateTime = readStartTime(parser.value("start-time"), values);
    for (const char* option : {"container", "transcode", "bitrate", "no-audio", "start-time"}) {
        if (parser.isSet(option) && !parser.isSet("export"))
            values.reject(QStringLiteral("--%1 needs --export").arg(option));
    }
    return options;
}

/// Whether both paths lead to one file, through links of either kind.
bool isSameFile(const QString& left, const QString& right) {
    std::error_code none;
    return std::filesystem::equivalent(QFile::encodeName(left).toStdString(),
                                       QFile::encodeName(right).toStdString(), none);
}

/// A trace must not empty what is read.
void checkTrace(const QString& trace, const QCommandLineParser& parser, Values& values) {
    for (const QString& video : parser.positionalArguments()) {
        if (isSameFile(trace, video))
            values.reject(QStringLiteral("--trace would overwrite the video '%1'").arg(video));
    }
    if (isSameFile(trace, parser.value("mask")))
        values.reject(
            QStringLiteral("--trace would overwrite the mask '%1'").arg(parser.value("mask")));
}

DetectionOptions readDetection(const QCommandLineParser& parser, Values& values) {
    DetectionOptions options;
    options.segmentation.prerecord = values.number("prerecord", 1.0, 3600.0);
    options.segmentation.postrecord = values.number("postrecord", 1.0, 3600.0);
    options.segmentation.minimum = values.number("minimum", 1.0, 3600.0);
    options.segmentation.thresholdMotion = float(values.number("threshold-motion", 0.0, 10.0));
    options.measure.thresholdValue = values.integer("threshold-value", 0, 255);
    options.measure.skip = values.integer("skip", 0, 100);
    options.times.mustBeUsable = true;
    if (parser.isSet("fps"))
        options.times.frameRate = values.number("fps", 0.01, 1000.0);
    options.threads = values.integer("threads", 0, 256);
    if (parser.isSet("roi") && parser.isSet("mask"))
        values.reject(QStringLiteral("--roi and --mask exclude each other"));
    else if (parser.isSet("roi"))
        readRectangle(parser.value("roi"), options.measure.region, values);
    else if (!parser.value("mask").isEmpty())
        readMask(parser.value("mask"), options.measure.region, values);
    return options;
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments))
        return {CommandLine::Action::Reject, {}, parser.errorText()};
    if (parser.isSet("help"))
        return {CommandLine::Action::PrintText, {}, parser.helpText()};
    if (parser.isSet("version"))
        return {CommandLine::Action::PrintText,
                {},
                QStringLiteral("kestrova-scan " KESTROVA_VERSION "\n")};

    Values values(parser);
    ScanOptions options;
    options.videos = parser.positionalArguments();
    options.detection = readDetection(parser, values);
    options.format = readFormat(parser.value("format"), values);
    options.snapshotDirectory = parser.value("snapshots");
    options.exporting = readExport(parser, values);
    options.traceFile = parser.value("trace");
    options.jobs = values.integer("jobs", 1, 256);
    options.quiet = parser.isSet("quiet");
    if (options.videos.isEmpty())
        values.reject(QStringLiteral("no video named"));
    for (const char* option : {"mask", "snapshots", "export", "trace"}) {
        if (parser.isSet(option) && parser.value(option).isEmpty())
            values.reject(QStringLiteral("--%1 needs a name").arg(option));
    }
    checkTrace(options.traceFile, parser, values);
    if (!values.error.isEmpty())
        return {CommandLine::Action::Reject, {}, values.error};
    return {CommandLine::Action::Scan, options, {}};
}
