// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesformat.h"

#include "escaping.h"
#include "shortestdigits.h"
#include "valuesnumber.h"

#include <QList>

#include <cmath>
#include <iterator>

namespace {

constexpr char contentKey[] = "content";
constexpr char partKey[] = "part";
constexpr char noDigest[] = "none";

/// The words of `PartFacts::Kind`, in its order.
constexpr const char* partWords[] = {"cut", "whole", "empty"};

QByteArray yesOrNo(bool isTrue) {
    return isTrue ? "yes" : "no";
}

QByteArray sizeText(const QSize& size) {
    return QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height());
}

QSize readSize(const QByteArray& text) {
    const int cross = text.indexOf('x');
    return {text.left(cross).toInt(), text.mid(cross + 1).toInt()};
}

QByteArray ratioText(const Ratio& ratio) {
    return QByteArray::number(ratio.numerator) + '/' + QByteArray::number(ratio.denominator);
}

Ratio readRatio(const QByteArray& text) {
    const int slash = text.indexOf('/');
    return {text.left(slash).toInt(), text.mid(slash + 1).toInt()};
}

/// "2/3 cut 3000 6000 2 0 yes"; of those that are not cut, only "1/3 whole".
QByteArray partText(RecordingPart part, const PartFacts& facts) {
    QByteArray text = QByteArray::number(part.index) + '/' + QByteArray::number(part.count) + ' ' +
                      partWords[int(facts.kind)];
    if (facts.kind != PartFacts::Kind::Cut)
        return text;
    for (const qint64 number : {facts.begin, facts.end, facts.delay, qint64(facts.held)})
        text += ' ' + QByteArray::number(number);
    return text + ' ' + yesOrNo(facts.isRegular);
}

void readPart(const QByteArray& text, KeptValues& values) {
    const QList<QByteArray> words = text.split(' ');
    const Ratio place = readRatio(words[0]);
    values.part = RecordingPart{place.numerator, place.denominator};
    PartFacts& facts = values.partFacts;
    for (int kind = 0; kind < int(std::size(partWords)); ++kind) {
        if (words.value(1) == partWords[kind])
            facts.kind = PartFacts::Kind(kind);
    }
    facts.begin = words.value(2).toLongLong();
    facts.end = words.value(3).toLongLong();
    facts.delay = words.value(4).toLongLong();
    facts.held = words.value(5).toInt();
    facts.isRegular = words.value(6) == "yes";
}

/// The head of a file of format 1 as one of format 2; empty where it is none.
QVector<HeadLine> fromFormat1(QVector<HeadLine> lines) {
    constexpr int contentPlace = 3;
    constexpr int lengthPlace = 9;
    double length = 0.0;
    const HeadLine line = lines.value(lengthPlace);
    if (line.key != "length" || !readNumber(line.value, length) ||
        shortestDigits(length) != line.value)
        return {};
    lines.remove(lengthPlace);
    lines.insert(contentPlace, {contentKey, noDigest});
    return lines;
}

/// What makes of a head of each older format, from 1 on, one of the next.
constexpr QVector<HeadLine> (*toNextFormat[])(QVector<HeadLine>) = {fromFormat1};
static_assert(std::size(toNextFormat) + 1 == formatNumber, "every older format is read");

} // namespace

QByteArray headText(const HeadLine& line) {
    return "# " + line.key + ": " + line.value + '\n';
}

std::optional<HeadLine> headLine(std::string_view line) {
    const std::size_t colon = line.find(": ");
    if (line.substr(0, 2) != "# " || colon == std::string_view::npos)
        return std::nullopt;
    return HeadLine{{line.data() + 2, int(colon) - 2},
                    {line.data() + colon + 2, int(line.size() - colon) - 2}};
}

QVector<HeadLine> headOf(const KeptValues& values) {
    const RecordingStamp& recording = values.recording;
    const StreamFacts& stream = values.measurement.stream;
    const StreamDescription& description = stream.description;
    QVector<HeadLine> lines{
        {"recording", escapedBytes(recording.path)},
        {"bytes", QByteArray::number(recording.bytes)},
        {"modified", QByteArray::number(recording.modified)},
        {contentKey, recording.digest.isEmpty() ? QByteArray(noDigest) : recording.digest},
        {"codec", stream.codecName},
        {"size", sizeText(description.size)},
        {"pixel-aspect", ratioText(description.pixelAspect)},
        {"pace", ratioText(description.frameRate)},
        {"start", shortestDigits(description.startTime)},
        {"intra", yesOrNo(stream.isIntraOnly)},
        {"rate", shortestDigits(stream.frameRate)},
        {"origin", shortestDigits(stream.origin)},
        {"region-empty", yesOrNo(stream.isRegionEmpty)}};
    lines += values.settings;
    if (values.part)
        lines.append({partKey, partText(*values.part, values.partFacts)});
    return lines;
}

bool readHead(QVector<HeadLine> lines, int format, KeptValues& values) {
    for (; format < formatNumber; ++format)
        lines = toNextFormat[format - 1](lines);
    const int fixed = headOf({}).size();
    if (lines.size() < fixed)
        return false;
    const auto value = [&lines](int index) { return lines[index].value; };
    const auto path = unescapedBytes(value(0));
    RecordingStamp& recording = values.recording;
    StreamFacts& stream = values.measurement.stream;
    StreamDescription& description = stream.description;
    const bool isGood =
        path && readNumber(value(1), recording.bytes) && readNumber(value(2), recording.modified) &&
        readNumber(value(8), description.startTime) && readNumber(value(10), stream.frameRate) &&
        readNumber(value(11), stream.origin);
    recording.digest = value(3) == noDigest ? QByteArray() : value(3);
    recording.path = path.value_or(QByteArray());
    stream.codecName = value(4);
    description.size = readSize(value(5));
    description.pixelAspect = readRatio(value(6));
    description.frameRate = readRatio(value(7));
    stream.isIntraOnly = value(9) == "yes";
    stream.isRegionEmpty = value(12) == "yes";
    values.settings = lines.mid(fixed);
    if (!values.settings.isEmpty() && values.settings.last().key == partKey)
        readPart(values.settings.takeLast().value, values);
    // What is written otherwise than this program writes it, it has not written.
    return isGood && headOf(values) == lines;
}

QByteArray pictureText(qint64 number, double time, MotionScore motion) {
    return QByteArray::number(number) + '\t' + shortestDigits(time) + '\t' +
           shortestDigits(motion.value) + '\n';
}

bool readPictureText(std::string_view line, qint64& number, double& time, MotionScore& motion) {
    const std::size_t timePlace = line.find('\t') + 1;
    const std::size_t scorePlace = line.find('\t', timePlace) + 1;
    return timePlace > 0 && scorePlace > 0 && readNumber(line.substr(0, timePlace - 1), number) &&
           readNumber(line.substr(timePlace, scorePlace - timePlace - 1), time) &&
           readNumber(line.substr(scorePlace), motion.value) && !std::signbit(motion.value);
}

QByteArray damageNumbers(const Damage& damage) {
    return QByteArray::number(damage.packets) + ' ' + shortestDigits(damage.promised) + ' ' +
           shortestDigits(damage.read);
}

bool readDamage(const QByteArray& text, Damage& damage) {
    const QList<QByteArray> words = text.split(' ');
    return words.size() == 3 && readNumber(words[0], damage.packets) &&
           readNumber(words[1], damage.promised) && readNumber(words[2], damage.read) &&
           damage.packets >= 0 && damage.promised >= 0.0 && damage.read >= 0.0 && damage.isThere();
}
