// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobjson.h"

#include "jsonfields.h"
#include "video.h"

#include <QDir>
#include <QFile>

#include <limits>

namespace {

constexpr int most = std::numeric_limits<int>::max();
constexpr int mostRectangles = 10000;

QJsonArray rectangleJson(const QRect& rectangle) {
    return {rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height()};
}

QRect rectangleOf(const QJsonValue& json, bool& isGood) {
    const QJsonArray sides = json.toArray();
    QJsonObject object;
    const char* const keys[] = {"x", "y", "width", "height"};
    for (int i = 0; i < 4; ++i)
        object.insert(QLatin1String(keys[i]), sides.at(i));
    JsonFields fields(object, isGood);
    constexpr int farthest = 1 << 20; // pixels, more than any picture has
    return {fields.integer("x", -farthest, farthest), fields.integer("y", -farthest, farthest),
            fields.integer("width", -farthest, farthest),
            fields.integer("height", -farthest, farthest)};
}

QJsonObject decidingJson(const DecidingOptions& options) {
    QJsonObject json{{"cells", options.detector == Detector::Cells},
                     {"before", numberJson(options.segmentation.prerecord)},
                     {"after", numberJson(options.segmentation.postrecord)},
                     {"minimum", numberJson(options.segmentation.minimum)},
                     {"threshold", numberJson(options.segmentation.motionThreshold.value)},
                     {"fewest", options.segmentation.fewestCompared},
                     {"step", options.cells.step},
                     {"ignoreRestless", options.cells.isRestlessIgnored}};
    if (options.joiningGap)
        json.insert("joining", numberJson(*options.joiningGap));
    return json;
}

DecidingOptions decidingOf(JsonFields fields) {
    DecidingOptions options;
    options.detector = fields.flag("cells") ? Detector::Cells : Detector::Mean;
    options.segmentation.prerecord = fields.number("before");
    options.segmentation.postrecord = fields.number("after");
    options.segmentation.minimum = fields.number("minimum");
    options.segmentation.motionThreshold.value = float(fields.number("threshold"));
    options.segmentation.fewestCompared = fields.integer("fewest", 0, most);
    options.cells.step = fields.integer("step", 1, int(cellSteps.size()));
    options.cells.isRestlessIgnored = fields.flag("ignoreRestless");
    if (fields.has("joining"))
        options.joiningGap = fields.number("joining");
    return options;
}

QJsonObject searchJson(const SearchOptions& search) {
    QJsonArray excluded;
    for (const QRect& rectangle : search.excluded)
        excluded.append(rectangleJson(rectangle));
    QJsonObject json{{"quick", search.isQuick}, {"excluded", excluded}};
    if (search.deciding)
        json.insert("deciding", decidingJson(*search.deciding));
    return json;
}

SearchOptions searchOf(JsonFields fields, bool& isGood) {
    SearchOptions search;
    search.isQuick = fields.flag("quick");
    const QJsonArray excluded = fields.array("excluded", mostRectangles);
    for (const QJsonValue& rectangle : excluded)
        search.excluded.append(rectangleOf(rectangle, isGood));
    if (fields.has("deciding"))
        search.deciding = decidingOf(fields.fields("deciding"));
    return search;
}

QJsonObject ratioJson(Ratio ratio) {
    return {{"numerator", ratio.numerator}, {"denominator", ratio.denominator}};
}

Ratio ratioOf(JsonFields fields) {
    return {fields.integer("numerator", -most, most), fields.integer("denominator", -most, most)};
}

QJsonObject streamJson(const StreamFacts& stream) {
    const StreamDescription& pictures = stream.description;
    return {{"codec", textJson(QString::fromLatin1(stream.codecName))},
            {"intraOnly", stream.isIntraOnly},
            {"width", pictures.size.width()},
            {"height", pictures.size.height()},
            {"aspect", ratioJson(pictures.pixelAspect)},
            {"rate", ratioJson(pictures.frameRate)},
            {"startTime", numberJson(pictures.startTime)},
            {"duration", numberJson(stream.duration)},
            {"numbering", numberJson(stream.frameRate)},
            {"origin", numberJson(stream.origin)},
            {"emptyRegion", stream.isRegionEmpty}};
}

StreamFacts streamOf(JsonFields fields) {
    StreamFacts stream;
    StreamDescription& pictures = stream.description;
    stream.codecName = fields.text("codec").toLatin1();
    stream.isIntraOnly = fields.flag("intraOnly");
    pictures.size = {fields.integer("width", -1, most), fields.integer("height", -1, most)};
    pictures.pixelAspect = ratioOf(fields.fields("aspect"));
    pictures.frameRate = ratioOf(fields.fields("rate"));
    pictures.startTime = fields.number("startTime");
    stream.duration = fields.number("duration");
    stream.frameRate = fields.number("numbering");
    stream.origin = fields.number("origin");
    stream.isRegionEmpty = fields.flag("emptyRegion");
    return stream;
}

/// Times in nanoseconds are no numbers that JSON holds exactly.
QJsonValue wholeJson(qint64 number) {
    return QString::number(number);
}

QJsonObject fileJson(const SearchedFile& file) {
    return {{"path", textJson(QFile::decodeName(file.stamp.path))},
            {"bytes", double(file.stamp.bytes)},
            {"modified", wholeJson(file.stamp.modified)},
            {"changed", wholeJson(file.changed)},
            {"digest", textJson(QString::fromLatin1(file.stamp.digest))}};
}

SearchedFile fileOf(JsonFields fields) {
    SearchedFile file;
    file.stamp.path = QFile::encodeName(fields.text("path"));
    file.stamp.bytes = fields.count("bytes");
    file.stamp.modified = fields.whole("modified");
    file.stamp.digest = fields.text("digest").toLatin1();
    file.changed = fields.whole("changed");
    return file;
}

QJsonObject factsJson(const JobFacts& facts) {
    QJsonObject json{{"seconds", numberJson(facts.seconds)},
                     {"width", facts.pictures.width()},
                     {"height", facts.pictures.height()},
                     {"stream", streamJson(facts.stream)},
                     {"strongest", numberJson(facts.strongest.value)},
                     {"strongestTime", numberJson(facts.strongestTime)},
                     {"error", textJson(facts.error)},
                     {"whole", facts.isReadToItsEnd},
                     {"damagedPackets", double(facts.damage.packets)},
                     {"promised", numberJson(facts.damage.promised)},
                     {"read", numberJson(facts.damage.read)}};
    if (facts.file)
        json.insert("file", fileJson(*facts.file));
    return json;
}

JobFacts factsOf(JsonFields fields) {
    JobFacts facts;
    facts.seconds = fields.number("seconds");
    facts.pictures = {fields.integer("width", -1, most), fields.integer("height", -1, most)};
    facts.stream = streamOf(fields.fields("stream"));
    facts.strongest.value = float(fields.number("strongest"));
    facts.strongestTime = fields.number("strongestTime");
    facts.error = fields.text("error");
    facts.isReadToItsEnd = fields.flag("whole");
    facts.damage.packets = fields.count("damagedPackets");
    facts.damage.promised = fields.number("promised");
    facts.damage.read = fields.number("read");
    if (fields.has("file"))
        facts.file = fileOf(fields.fields("file"));
    return facts;
}

QDateTime timeOf(const QString& text, bool& isGood) {
    QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
    isGood = isGood && (text.isEmpty() || time.isValid());
    return time;
}

} // namespace

QJsonObject jobJson(const JobRecord& job) {
    QJsonObject json{{"file", textJson(job.fileName)},
                     {"folder", textJson(job.clipDirectory)},
                     {"state", job.state},
                     {"before", numberJson(job.prerecord)},
                     {"after", numberJson(job.postrecord)},
                     {"minimum", numberJson(job.minimum)},
                     {"skip", job.skip},
                     {"autoExport", job.autoExport},
                     {"intraCodec", job.intraCodec},
                     {"timestamps", job.exportTimestamps},
                     {"start", textJson(job.startDateTime.toString(Qt::ISODateWithMs))},
                     {"search", searchJson(job.search)},
                     {"facts", factsJson(job.facts)},
                     {"firstClip", job.firstClipNumber},
                     {"nextClip", job.nextClipNumber}};
    if (job.fileSize >= 0)
        json.insert("size", double(job.fileSize));
    if (job.roiRect)
        json.insert("rectangle", rectangleJson(*job.roiRect));
    return json;
}

JobRecord jobOf(const QJsonValue& json, bool& isGood) {
    JsonFields fields(json, isGood);
    JobRecord job;
    job.fileName = fields.text("file");
    job.clipDirectory = fields.text("folder");
    job.state = fields.integer("state", Video::Waiting, Video::Finished);
    // The encoder is told to write there; what could not even be opened has none.
    const bool hasNone = job.clipDirectory.isEmpty() && job.state == Video::Failed;
    isGood = isGood && (hasNone || QDir::isAbsolutePath(job.clipDirectory));
    job.prerecord = fields.number("before");
    job.postrecord = fields.number("after");
    job.minimum = fields.number("minimum");
    job.skip = fields.integer("skip", 0, most);
    job.autoExport = fields.flag("autoExport");
    job.intraCodec = fields.flag("intraCodec");
    job.exportTimestamps = fields.flag("timestamps");
    job.startDateTime = timeOf(fields.text("start"), isGood);
    job.search = searchOf(fields.fields("search"), isGood);
    job.facts = factsOf(fields.fields("facts"));
    job.firstClipNumber = fields.integer("firstClip", 0, mostClipNumber);
    job.nextClipNumber = fields.integer("nextClip", 0, mostClipNumber);
    if (fields.has("size"))
        job.fileSize = fields.count("size");
    if (fields.has("rectangle")) {
        const QJsonArray sides = fields.array("rectangle", 4);
        job.roiRect = rectangleOf(sides, isGood);
    }
    return job;
}
