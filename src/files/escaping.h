// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Whether a character steers what shows it instead of being shown: control characters, separators
/// of lines and paragraphs, and the marks that turn the direction of writing, in which a name can
/// pretend to be another one. Joiners, without which some scripts cannot be written, do not.
bool isSteering(QChar character);

/// `text` with what `escapeAt(text, place)` answers in place of each character for which that is
/// not null.
template<class EscapeAt>
QString escaped(const QString& text, const EscapeAt& escapeAt) {
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const QString escape = escapeAt(text, i);
        if (escape.isNull())
            result += text[i];
        else
            result += escape;
    }
    return result;
}

/// What stands for the character at a place of `text` where it would steer: "\n", "\t", "\r", or
/// the "\x1b" of its bytes. Null where it does not.
///
/// A byte 0x80 to 0x9f that is no UTF-8 (undecodedByte) steers, too: terminals that do not speak
/// UTF-8 take it for a control character.
QString steeringEscape(const QString& text, int place);

/// The same, and the "\xff" of every other byte that is no UTF-8, where only text can be shown.
QString textEscape(const QString& text, int place);

/// One word of a POSIX shell, or of one that knows $'...' for a name with bytes that are no plain
/// text.
QString shellWord(const QString& text);

/// `text` in one line that cannot steer a terminal: what steers (steeringEscape) becomes "\n",
/// "\t", "\r" or the "\x1b" of its bytes, and a backslash becomes two.
QString printable(const QString& text);

/// `text` as it is shown where an ampersand would underline the letter behind it.
QString withoutMnemonics(QString text);

/// Whole lines, their bytes those of QFile::encodeName, as a terminal may see them: the same
/// without what steers, but with their line ends, and with backslashes as they are.
QByteArray printableLines(const QByteArray& lines);

/// A field of CSV as RFC 4180 has it: in quotes where there are separators or quotes in it.
QByteArray csvField(const QByteArray& bytes);

/// `bytes` in one line: control characters and the percent sign become "%0A" and the like.
QByteArray escapedBytes(const QByteArray& bytes);

/// The bytes that `escapedBytes` makes `text` of; nothing if it makes it of none.
std::optional<QByteArray> unescapedBytes(const QByteArray& text);
