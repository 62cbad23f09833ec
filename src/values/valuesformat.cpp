// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesformat.h"

#include "escapedbytes.h"
#include "shortestdigits.h"
#include "valuesnumber.h"

#include <QList>

#include <iterator>

namespace {

constexpr char contentKey[] = "content";
constexpr char noDigest[] = "none";

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

QByteArray ratioText(const KeptRatio& ratio) {
    return QByteArray::number(ratio.above) + '/' + QByteArray::number(ratio.below);
}

KeptRatio readRatio(const QByteArray& text) {
    const int slash = text.indexOf('/');
    return {text.left(slash).toInt(), text.mid(slash + 1).toInt()};
}

/// "2/3 cut 3000 6000 2 0 yes"; of those that are not cut, only "1/3 whole".
QByteArray partText(const KeptPart& part) {
    QByteArray text = QByteArray::number(part.index) + '/' + QByteArray::number(part.count) + ' ' +
                      partWords[int(part.kind)];
    if (part.kind != KeptPart::Kind::Cut)
        return text;
    for (const qint64 number : {part.begin, part.end, part.delay, qint64(part.held)})
        text += ' ' + QByteArray::number(number);
    return text + ' ' + yesOrNo(part.isRegular);
}

KeptPart readPart(const QByteArray& text) {
    const QList<QByteArray> words = text.split(' ');
    const auto word = [&words](int place) { return words.value(place); };
    const QByteArray place = word(0);
    KeptPart part;
    part.index = place.left(place.indexOf('/')).toInt();
    part.count = place.mid(place.indexOf('/') + 1).toInt();
    for (int kind = 0; kind < int(std::size(partWords)); ++kind) {
        if (word(1) == partWords[kind])
            part.kind = KeptPart::Kind(kind);
    }
    part.begin = word(2).toLongLong();
    part.end = word(3).toLongLong();
    part.delay = word(4).toLongLong();
    part.held = word(5).toInt();
    part.isRegular = word(6) == "yes";
    return part;
}

/// The head of a file of format 1 as one of today's; empty where it is none.
QVector<HeadLine> translated(QVector<HeadLine> lines) {
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

} // namespace

QByteArray headText(const HeadLine& line) {
    return "# " + line.key + ": " + line.value + '\n';
}

QVector<HeadLine> headOf(const KeptValues& values) {
    const RecordingStamp& recording = values.recording;
    const KeptStream& stream = values.stream;
    QVector<HeadLine> lines{
        {"recording", escapedBytes(recording.path)},
        {"bytes", QByteArray::number(recording.bytes)},
        {"modified", QByteArray::number(recording.modified)},
        {contentKey, recording.digest.isEmpty() ? QByteArray(noDigest) : recording.digest},
        {"codec", stream.codec},
        {"size", sizeText(stream.size)},
        {"pixel-aspect", ratioText(stream.pixelAspect)},
        {"pace", ratioText(stream.pace)},
        {"start", shortestDigits(stream.start)},
        {"intra", yesOrNo(stream.isIntraOnly)},
        {"rate", shortestDigits(stream.frameRate)},
        {"origin", shortestDigits(stream.origin)},
        {"region-empty", yesOrNo(stream.isRegionEmpty)}};
    lines += values.settings;
    if (values.part)
        lines.append({partKey, partText(*values.part)});
    return lines;
}

bool readHead(const QVector<HeadLine>& written, int format, KeptValues& values) {
    const QVector<HeadLine> lines = format == 1 ? translated(written) : written;
    const int fixed = headOf({}).size();
    if (lines.size() < fixed)
        return false;
    const auto value = [&lines](int index) { return lines[index].value; };
    const auto path = unescapedBytes(value(0));
    RecordingStamp& recording = values.recording;
    KeptStream& stream = values.stream;
    const bool isGood =
        path && readNumber(value(1), recording.bytes) && readNumber(value(2), recording.modified) &&
        readNumber(value(8), stream.start) && readNumber(value(10), stream.frameRate) &&
        readNumber(value(11), stream.origin);
    recording.digest = value(3) == noDigest ? QByteArray() : value(3);
    recording.path = path.value_or(QByteArray());
    stream.codec = value(4);
    stream.size = readSize(value(5));
    stream.pixelAspect = readRatio(value(6));
    stream.pace = readRatio(value(7));
    stream.isIntraOnly = value(9) == "yes";
    stream.isRegionEmpty = value(12) == "yes";
    values.settings = lines.mid(fixed);
    if (!values.settings.isEmpty() && values.settings.last().key == partKey)
        values.part = readPart(values.settings.takeLast().value);
    // What is written otherwise than this program writes it, it has not written.
    return isGood && headOf(values) == lines;
}
