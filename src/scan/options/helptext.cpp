// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "knownnames.h"
#include "optionspelling.h"
#include "optiontext.h"

namespace {

constexpr int lastColumn = 78;
constexpr int helpColumn = 26;

/// `text` in lines that end before `lastColumn`, all but the first indented.
QString wrapped(const QString& text, int indent) {
    QString lines;
    int column = indent;
    for (const QString& word : text.split(' ')) {
        const bool isFirst = column == indent;
        if (!isFirst && column + 1 + word.size() > lastColumn) {
            lines += '\n' + QString(indent, ' ');
            column = indent;
        } else if (!isFirst) {
            lines += ' ';
            ++column;
        }
        lines += word;
        column += word.size();
    }
    return lines;
}

QString helpEntry(const ScanOption& option) {
    QString line = QStringLiteral("  ") + spelling(option);
    line = line.size() < helpColumn ? line.leftJustified(helpColumn)
                                    : line + '\n' + QString(helpColumn, ' ');
    return line + wrapped(sentence(option), helpColumn) + '\n';
}

/// Those that are used, with their examples.
QString nameEntries() {
    QString lines;
    for (const KnownName& name : knownNames()) {
        if (name.reading != NameReading::Unusable)
            lines += QStringLiteral("  ") + name.pattern.leftJustified(helpColumn) + ' ' +
                     name.example + '\n';
    }
    return lines;
}

} // namespace

QString helpText() {
    QString text = scannerDescription();
    forEachOption([&](const ScanOption& option, bool isFirst) {
        if (isFirst)
            text += '\n' + groupTitle(option.group) + ":\n";
        text += helpEntry(option);
    });
    text += '\n' +
            wrapped("Names that --start-time auto knows, with the same time in each; - and _ stand "
                    "for other separators, too:",
                    0) +
            '\n' + nameEntries();
    QStringList exits;
    for (const ExitMeaning& exit : exitMeanings())
        exits += QString::number(exit.status) + ' ' + exit.meaning;
    return text + '\n' + wrapped("Exit status: " + exits.join(QStringLiteral("; ")) + '.', 0) +
           '\n';
}
