// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "responsefile.h"

#include "optiontable.h"

#include <QByteArrayList>
#include <QFile>

#include <algorithm>
#include <cstring>

namespace {

constexpr qint64 mostBytes = 16 << 20;

/// Some editors write it in front of UTF-8; nobody sees it.
constexpr const char* byteOrderMark = "\xef\xbb\xbf";

/// Takes the text of a response file apart.
class WordReader {
public:
    explicit WordReader(const QByteArray& text)
        : text(text) {}

    /// What is wrong with the text, empty if nothing is.
    QString read() {
        for (; place < text.size(); ++place) {
            if (!take(text[place]))
                return QStringLiteral("a backslash at its end has nothing behind it");
        }
        if (quote != '\0')
            return QStringLiteral("a quotation mark is not closed");
        endWord();
        return {};
    }

    QByteArrayList words;

private:
    /// False where a byte is missing behind this one.
    bool take(char byte) {
        if (byte == '\\')
            return takeNext();
        if (quote == '\0' && isSpace(byte))
            endWord();
        else if (byte == quote)
            quote = '\0';
        else if (quote == '\0' && (byte == '"' || byte == '\''))
            open(byte);
        else
            add(byte);
        return true;
    }

    bool takeNext() {
        if (++place == text.size())
            return false;
        add(text[place]);
        return true;
    }

    /// Quotes make a word, also of nothing.
    void open(char mark) {
        quote = mark;
        isInWord = true;
    }

    void add(char byte) {
        word += byte;
        isInWord = true;
    }

    void endWord() {
        if (isInWord)
            words.append(word);
        word.clear();
        isInWord = false;
    }

    static bool isSpace(char byte) { return std::strchr(" \t\n\v\f\r", byte) != nullptr; }

    const QByteArray& text;
    int place = 0;
    QByteArray word;
    bool isInWord = false;
    char quote = '\0'; ///< that is open
};

/// Reads a file's words, and answers what is wrong with it; empty if nothing is.
QString readWords(const QString& name, QStringList& words) {
    QFile file(name);
    QByteArray text;
    if (file.open(QIODevice::ReadOnly))
        text = file.read(mostBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return file.errorString();
    if (text.size() > mostBytes)
        return QStringLiteral("it has more than 16 MiB");
    if (text.contains('\0'))
        return QStringLiteral("it has null bytes, which no argument can hold");
    if (text.startsWith(byteOrderMark))
        text.remove(0, int(std::strlen(byteOrderMark)));
    WordReader reader(text);
    QString flaw = reader.read();
    for (const QByteArray& word : qAsConst(reader.words))
        words.append(QFile::decodeName(word));
    return flaw;
}

/// Goes through a command line from its first argument to its last.
class Expansion {
public:
    void add(const QString& argument) {
        if (isResponseFile(argument))
            addFile(argument.mid(1));
        else
            addWord(argument);
    }

    ExpandedArguments result;

private:
    bool isResponseFile(const QString& argument) const {
        return argument.startsWith('@') && !isValueNext && !areOptionsOver;
    }

    void addWord(const QString& word) {
        const bool isValue = isValueNext;
        isValueNext = !isValue && !areOptionsOver && takesValue(word);
        areOptionsOver = areOptionsOver || (!isValue && word == QLatin1String("--"));
        result.arguments.append(word);
    }

    void addFile(const QString& name) {
        QStringList words;
        const QString flaw =
            name.isEmpty() ? QStringLiteral("no file is named") : readWords(name, words);
        result.files.append(name);
        if (!flaw.isEmpty())
            reject(name, flaw);
        for (const QString& word : qAsConst(words)) {
            if (isResponseFile(word))
                reject(name, QStringLiteral("it names another such file, '%1'; a recording of that "
                                            "name is './%1'")
                                 .arg(word));
            addWord(word);
        }
    }

    void reject(const QString& name, const QString& flaw) {
        if (result.error.isEmpty())
            result.error = QStringLiteral("cannot take arguments from '@%1': ").arg(name) + flaw;
    }

    /// Whether the word behind this one is its value: "--report", and with one dash as well, but
    /// not "--report=night".
    static bool takesValue(const QString& word) {
        const auto isIt = [&](const ScanOption& option) {
            return option.kind != ValueKind::None &&
                   (word == "--" + option.name || word == '-' + option.name);
        };
        return std::any_of(scanOptions().cbegin(), scanOptions().cend(), isIt);
    }

    bool isValueNext = false;
    bool areOptionsOver = false; ///< by "--"
};

} // namespace

ExpandedArguments expandResponseFiles(const QStringList& arguments) {
    Expansion expansion;
    expansion.result.arguments = arguments.mid(0, 1); // the program
    for (const QString& argument : arguments.mid(1))
        expansion.add(argument);
    return expansion.result;
}
