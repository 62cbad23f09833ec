// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesreader.h"

#include "escaping.h"
#include "linereader.h"
#include "valuesformat.h"
#include "valuesnumber.h"

#include <QCryptographicHash>
#include <QList>

#include <algorithm>
#include <limits>

namespace {

using Line = std::string_view;

constexpr int mostHeadLines = 64;

/// Those behind it are still numbers.
constexpr qint64 greatestFirstNumber = std::numeric_limits<qint64>::max() - mostKeptPictures;

bool startsWith(Line line, Line beginning) {
    return line.substr(0, beginning.size()) == beginning;
}

/// Reads one values file from its first line to its last.
class ValuesParser {
public:
    explicit ValuesParser(LineReader& lines)
        : lines(lines) {}

    /// What is wrong, empty if nothing is.
    QString run() {
        const bool isGood = next() && readFirstLine() && readHeadLines() && readPictures() &&
                            readDamageLine() && readReason() && readEnd();
        return isGood ? QString() : error;
    }

    /// The head alone.
    bool runHead() { return next() && readFirstLine() && readHeadLines(); }

    KeptValues values;
    QByteArray digest;         ///< that its last line names
    bool isValuesFile = false; ///< says its first line

private:
    bool fail(const QString& what) {
        if (error.isEmpty())
            error = what;
        return false;
    }

    bool failHere() { return fail(QStringLiteral("line %1 is damaged").arg(number)); }

    /// Goes to the next line. The hash takes in each line when it is left behind, so that the
    /// last one can be treated otherwise.
    bool next() {
        if (number > 0) {
            hash.addData(line.data(), int(line.size()));
            hash.addData("\n", 1);
        }
        const auto found = lines.next();
        if (!found)
            return fail(lines.flaw().isEmpty() ? QStringLiteral("it is cut off") : lines.flaw());
        line = *found;
        ++number;
        return true;
    }

    /// What the line says of this key; nothing if it is one of something else.
    std::optional<QByteArray> valueOf(const char* key) const {
        const auto found = headLine(line);
        return found && found->key == key ? std::make_optional(found->value) : std::nullopt;
    }

    bool readFirstLine() {
        const Line name = formatName;
        if (!startsWith(line, name) || !readNumber(line.substr(name.size()), format))
            return fail(QStringLiteral("it is no file with motion values"));
        isValuesFile = true;
        if (format > formatNumber)
            return fail(QStringLiteral("its format is newer than this program"));
        const bool isKnown = format >= 1 && line.substr(name.size()) == std::to_string(format);
        return (isKnown || failHere()) && next();
    }

    bool readHeadLines() {
        QVector<HeadLine> head;
        auto found = headLine(line);
        for (; found && found->key != reasonKey && found->key != endKey; found = headLine(line)) {
            head.append(*found);
            if (head.size() > mostHeadLines || !next())
                return failHere();
        }
        return readHead(head, format, values) || fail(QStringLiteral("its head is damaged"));
    }

    bool readPictures() {
        for (qint64 count = 0; !startsWith(line, "#"); ++count) {
            if (count > mostKeptPictures || !readPicture(count))
                return failHere();
            if (!next())
                return false;
        }
        return true;
    }

    bool readPicture(qint64 count) {
        qint64 pictureNumber = 0;
        double time = 0.0;
        MotionScore motion;
        const bool isGood = readPictureText(line, pictureNumber, time, motion);
        if (count == 0) {
            measured.hasPictures = true;
            measured.firstNumber = pictureNumber;
            measured.firstTime = time;
            return isGood && pictureNumber >= 0 && pictureNumber < greatestFirstNumber &&
                   motion == MotionScore();
        }
        measured.series.times.append(time);
        measured.series.scores.append(motion);
        return isGood && pictureNumber == measured.firstNumber + count;
    }

    bool readDamageLine() {
        const auto text = valueOf(damageKey);
        return !text || ((readDamage(*text, measured.damage) || failHere()) && next());
    }

    bool readReason() {
        const auto text = valueOf(reasonKey);
        if (!text)
            return true;
        values.reason = QString::fromUtf8(unescapedBytes(*text).value_or(QByteArray()));
        return (!values.reason.isEmpty() || failHere()) && next();
    }

    bool readEnd() {
        const QList<QByteArray> words = valueOf(endKey).value_or(QByteArray()).split(' ');
        qint64 count = 0;
        const bool isCounted = readNumber(words.value(1), count) && count == pictures();
        const auto* end = std::find_if(std::begin(endWords), std::end(endWords),
                                       [&](EndWord known) { return words[0] == known.word; });
        if (!isCounted || end == std::end(endWords))
            return failHere();
        values.outcome = end->outcome;
        digest = words.value(2);
        hash.addData(line.data(), int(line.size()) - digest.size());
        if (digest != hash.result().toHex())
            return fail(QStringLiteral("its digest is another"));
        if (!isConsistent())
            return fail(QStringLiteral("it contradicts itself"));
        return isAtEnd();
    }

    bool isAtEnd() {
        const bool hasMore = lines.next() || !lines.flaw().isEmpty();
        return !hasMore || fail(QStringLiteral("something stands behind its end"));
    }

    qint64 pictures() const { return measured.hasPictures ? measured.series.times.size() + 1 : 0; }

    bool isConsistent() const {
        const bool isRead = pictures() >= 2;
        const bool isFinished = values.outcome == DetectionOutcome::Finished;
        if (isFinished != values.reason.isEmpty() || (measured.damage.isThere() && !isFinished))
            return false;
        switch (values.outcome) {
        case DetectionOutcome::Finished:
            return isRead || values.part;
        case DetectionOutcome::NoUsableTimes:
            return isRead || pictures() == 0;
        default:
            return pictures() == 0;
        }
    }

    Measurement& measured = values.measurement;
    LineReader& lines;
    Line line;
    int format = 0;
    qint64 number = 0; ///< of the line, from 1
    QCryptographicHash hash{QCryptographicHash::Sha256};
    QString error;
};

} // namespace

ValuesReading readValues(const QString& path) {
    LineReader lines;
    const bool isOpen = lines.open(path);
    if (!isOpen && lines.flaw().isEmpty())
        return {};
    ValuesParser parser(lines);
    const QString flaw = isOpen ? parser.run() : lines.flaw();
    if (!flaw.isEmpty())
        return {ValuesReading::State::Flawed, flaw, {}, {}};
    return {ValuesReading::State::Good, {}, std::move(parser.values), parser.digest};
}

std::optional<QByteArray> recordingNamedIn(const QString& path) {
    LineReader lines;
    if (!lines.open(path))
        return std::nullopt;
    ValuesParser parser(lines);
    const bool isGood = parser.runHead();
    if (!parser.isValuesFile)
        return std::nullopt;
    return isGood ? parser.values.recording.path : QByteArray();
}
