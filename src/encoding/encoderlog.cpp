// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderlog.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

constexpr int longestLine = 480;
constexpr int longestOfLast = 200;
constexpr int lastLineCount = 5;

const char* const systemErrors[] = {
    "No space left on device", "Disk quota exceeded",   "File too large",
    "Input/output error",      "Read-only file system", "Permission denied",
    "Operation not permitted", "Is a directory",        "Not a directory",
    "File name too long",      "Too many open files",   "No such file or directory",
    "Cannot allocate memory",  "Broken pipe",
};

/// In small letters.
const char* const tellingWords[] = {
    "error",  "fail",    "invalid",       "could not",   "cannot",       "can't",
    "unable", "unknown", "not supported", "unsupported", "unrecognized", "not found",
};

/// What the encoder says of every failure, and of damage that it copes with. In small letters.
const char* const emptyWords[] = {"conversion failed", "error while decoding", "concealing"};

/// The lines that describe the files, whatever these are called.
const char* const descriptions[] = {" ", "\t", "Input #", "Output #", "Stream #"};

template<int count>
bool containsAny(const QByteArray& line, const char* const (&words)[count]) {
    return std::any_of(std::begin(words), std::end(words),
                       [&line](const char* word) { return line.contains(word); });
}

bool isDescription(const QByteArray& line) {
    return std::any_of(std::begin(descriptions), std::end(descriptions),
                       [&line](const char* start) { return line.startsWith(start); });
}

/// Which part of the encoder speaks, and where in memory it lies, tells a person nothing.
void dropSpeakers(QByteArray& line) {
    static const QRegularExpression speakers(QStringLiteral("^(\\[[^\\]]* @ 0x[0-9A-Fa-f]+\\] )+"));
    line.remove(0, speakers.match(QString::fromLatin1(line)).capturedLength());
}

/// The end stays, too: after a long path stands what is wrong with it.
void dropMiddle(QByteArray& line, int longest) {
    const QByteArray gap = "...";
    const int excess = line.size() - longest;
    if (excess > 0)
        line.replace(longest / 4, excess + gap.size(), gap);
}

} // namespace

void EncoderLog::append(const QByteArray& bytes) {
    int start = 0;
    for (int i = 0; i <= bytes.size(); ++i) {
        const bool isEnd = i < bytes.size() && (bytes[i] == '\n' || bytes[i] == '\r');
        if (!isEnd && i < bytes.size())
            continue;
        line += bytes.mid(start, i - start);
        dropMiddle(line, longestLine);
        start = i + 1;
        if (isEnd)
            endLine();
    }
}

QString EncoderLog::reason() const {
    EncoderLog whole(*this);
    whole.endLine();
    const QByteArray text =
        whole.tellingRank == Says ? whole.lastLines.join('\n') : whole.telling.trimmed();
    return QString::fromLocal8Bit(text);
}

void EncoderLog::endLine() {
    dropSpeakers(line);
    const Rank rank = rankOf(line);
    if (rank > tellingRank) {
        tellingRank = rank;
        telling = line;
    }
    line = line.trimmed();
    if (!line.isEmpty()) {
        dropMiddle(line, longestOfLast);
        lastLines = lastLines.mid(lastLines.size() < lastLineCount ? 0 : 1);
        lastLines.append(line);
    }
    line.clear();
}

EncoderLog::Rank EncoderLog::rankOf(const QByteArray& line) {
    const QByteArray small = line.toLower();
    if (isDescription(line) || containsAny(small, emptyWords))
        return Says;
    if (containsAny(line, systemErrors))
        return NamesSystemError;
    return containsAny(small, tellingWords) ? Tells : Says;
}
