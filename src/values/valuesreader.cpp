// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesreader.h"

#include "escapedbytes.h"
#include "linereader.h"
#include "valuesformat.h"
#include "valuesnumber.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>

namespace {

using Line = std::string_view;

constexpr int mostHeadLines = 64;

/// Those behind it are still numbers.
constexpr qint64 greatestFirstNumber = std::numeric_limits<qint64>::max() - mostKeptPictures;

QByteArray toBytes(Line line) {
    return {line.data(), int(line.size())};
}

bool startsWith(Line line, Line beginning) {
    return line.substr(0, beginning.size()) == beginning;
}

/// Takes the text up to `separator`, and that, off the line.
Line takeUpTo(char separator, Line& line) {
    const std::size_t place = line.find(separator);
    const Line text = line.substr(0, place);
    line = place == Line::npos ? Line() : line.substr(place + 1);
    return text;
}

std::optional<HeadLine> headLine(Line line) {
    if (!startsWith(line, "# "))
        return std::nullopt;
    const std::size_t colon = line.find(": ");
    if (colon == Line::npos)
        return std::nullopt;
    return HeadLine{toBytes(line.substr(2, colon - 2)), toBytes(line.substr(colon + 2))};
}

/// Opens a regular file, and nothing else that may have its name: whoever writes to a pipe would
/// take this for its reader. The error is empty where there is no file.
bool openRegular(const QString& path, QFile& file, QString& error) {
    const QByteArray name = QFile::encodeName(path);
    struct stat found {};
    if (stat(name.constData(), &found) != 0) {
        error = errno == ENOENT ? QString() : qt_error_string(errno);
        return false;
    }
    if (!S_ISREG(found.st_mode)) {
        error = QStringLiteral("it is no regular file");
        return false;
    }
    const int descriptor = open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        error = qt_error_string(errno);
    return descriptor >= 0 && file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                                        QFileDevice::AutoCloseHandle);
}

/// Reads one values file from its first line to its last.
class ValuesParser {
public:
    explicit ValuesParser(QIODevice& file)
        : lines(file) {}

    /// What is wrong, empty if nothing is.
    QString run() {
        const bool isGood = next() && readFirstLine() && readHeadLines() && readPictures() &&
                            readDamage() && readReason() && readEnd();
        return isGood ? QString() : error;
    }

    /// The head alone.
    bool runHead() { return next() && readFirstLine() && readHeadLines(); }

    KeptValues values;
    bool isValuesFile = false; ///< says its first line

private:
    bool fail(const QString& what) {
        if (error.isEmpty())
            error = what;
        return false;
    }

    bool failHere() { return fail(QStringLiteral("line %1 is damaged").arg(number)); }

    /// Goes to the next line. The digest takes in each line when it is left behind, so that the
    /// last one can be treated otherwise.
    bool next() {
        if (number > 0) {
            digest.addData(line.data(), int(line.size()));
            digest.addData("\n", 1);
        }
        const auto found = lines.next();
        if (!found)
            return fail(lines.flaw().isEmpty() ? QStringLiteral("it is cut off") : lines.flaw());
        line = *found;
        ++number;
        return true;
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
        float value = 0.0F;
        Line rest = line;
        const bool isGood = readNumber(takeUpTo('\t', rest), pictureNumber) &&
                            readNumber(takeUpTo('\t', rest), time) && readNumber(rest, value) &&
                            !std::signbit(value);
        if (count == 0) {
            values.hasPictures = true;
            values.firstNumber = pictureNumber;
            values.firstTime = time;
            return isGood && pictureNumber >= 0 && pictureNumber < greatestFirstNumber &&
                   value == 0.0F;
        }
        values.times.append(time);
        values.values.append(value);
        return isGood && pictureNumber == values.firstNumber + count;
    }

    bool readDamage() {
        const auto found = headLine(line);
        if (!found || found->key != damageKey)
            return true;
        Line rest = line.substr(line.find(": ") + 2);
        KeptDamage damage;
        const bool isGood = readNumber(takeUpTo(' ', rest), damage.packets) &&
                            readNumber(takeUpTo(' ', rest), damage.promised) &&
                            readNumber(rest, damage.read) && damage.packets >= 0 &&
                            damage.promised >= 0.0 && damage.read >= 0.0;
        values.damage = damage;
        return (isGood || failHere()) && next();
    }

    bool readReason() {
        const auto found = headLine(line);
        if (!found || found->key != reasonKey)
            return true;
        const auto text = unescapedBytes(found->value);
        values.reason = QString::fromUtf8(text.value_or(QByteArray()));
        return (!values.reason.isEmpty() || failHere()) && next();
    }

    bool readEnd() {
        const auto found = headLine(line);
        if (!found || found->key != endKey)
            return failHere();
        Line rest = line.substr(line.find(": ") + 2);
        const Line word = takeUpTo(' ', rest);
        qint64 count = 0;
        const bool isCounted = readNumber(takeUpTo(' ', rest), count) && count == pictures();
        const auto* end = std::find(std::begin(endWords), std::end(endWords), word);
        if (!isCounted || end == std::end(endWords))
            return failHere();
        values.end = KeptEnd(end - std::begin(endWords));
        digest.addData(line.data(), int(line.size() - rest.size()));
        if (toBytes(rest) != digest.result().toHex())
            return fail(QStringLiteral("its digest is another"));
        if (!isConsistent())
            return fail(QStringLiteral("it contradicts itself"));
        return isAtEnd();
    }

    bool isAtEnd() {
        const bool hasMore = lines.next() || !lines.flaw().isEmpty();
        return !hasMore || fail(QStringLiteral("something stands behind its end"));
    }

    qint64 pictures() const { return values.hasPictures ? values.times.size() + 1 : 0; }

    bool isConsistent() const {
        const bool isRead = pictures() >= 2;
        const bool isFinished = values.end == KeptEnd::Finished;
        if (isFinished != values.reason.isEmpty() || (values.damage && !isFinished))
            return false;
        switch (values.end) {
        case KeptEnd::Finished:
            return isRead || values.part;
        case KeptEnd::NoUsableTimes:
            return isRead || pictures() == 0;
        default:
            return pictures() == 0;
        }
    }

    LineReader lines;
    Line line;
    int format = 0;
    qint64 number = 0; ///< of the line, from 1
    QCryptographicHash digest{QCryptographicHash::Sha256};
    QString error;
};

} // namespace

ValuesReading readValues(const QString& path) {
    QFile file;
    ValuesReading reading;
    if (!openRegular(path, file, reading.flaw)) {
        if (!reading.flaw.isEmpty())
            reading.state = ValuesReading::State::Flawed;
        return reading;
    }
    ValuesParser parser(file);
    reading.flaw = parser.run();
    const bool isGood = reading.flaw.isEmpty();
    reading.state = isGood ? ValuesReading::State::Good : ValuesReading::State::Flawed;
    if (isGood)
        reading.values = std::move(parser.values);
    return reading;
}

std::optional<QByteArray> recordingNamedIn(const QString& path) {
    QFile file;
    QString error;
    if (!openRegular(path, file, error))
        return std::nullopt;
    ValuesParser parser(file);
    const bool isGood = parser.runHead();
    if (!parser.isValuesFile)
        return std::nullopt;
    return isGood ? parser.values.recording.path : QByteArray();
}
