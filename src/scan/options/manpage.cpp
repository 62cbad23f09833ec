// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optionspelling.h"
#include "optiontext.h"

namespace {

QString roff(QString text) {
    text.replace('\\', QStringLiteral("\\e")).replace('-', QStringLiteral("\\-"));
    return text.startsWith('.') || text.startsWith('\'') ? QStringLiteral("\\&") + text : text;
}

QString manOption(const ScanOption& option) {
    QString tag = QStringLiteral("\\fB") + roff("--" + option.name) + QStringLiteral("\\fR");
    if (!option.letter.isNull())
        tag = QStringLiteral("\\fB") + roff("-" + QString(option.letter)) +
              QStringLiteral("\\fR, ") + tag;
    if (!option.bare.isEmpty())
        tag += QStringLiteral("[=\\fI") + roff(option.value) + QStringLiteral("\\fR]");
    else if (!option.value.isEmpty())
        tag += QStringLiteral(" \\fI") + roff(option.value) + QStringLiteral("\\fR");
    QString text = QStringLiteral(".TP\n") + tag + '\n' + roff(sentence(option)) + '\n';
    if (!option.company().isEmpty())
        text += QStringLiteral("It ") + roff(option.company()) + QStringLiteral(".\n");
    return text;
}

QString manTagged(const QString& tag, const QString& text) {
    return QStringLiteral(".TP\n.B ") + roff(tag) + '\n' + roff(text) + '\n';
}

QString manFields() {
    QString text = QStringLiteral(
        ".SH JSON LINES\nWith \\fB\\-\\-format jsonl\\fR each clip is an object with these "
        "fields:\n");
    bool isEnd = false;
    for (const JsonField& field : jsonFields()) {
        if (!isEnd && field.line == QLatin1String("end")) {
            isEnd = true;
            text += QStringLiteral(".PP\nAfter each recording comes one with these:\n");
        }
        text += manTagged(field.name, field.meaning);
    }
    return text;
}

} // namespace

QString manPage(const QString& version, const QString& date) {
    QString text =
        QStringLiteral(".TH KESTROVA\\-SCAN 1 %1 \"kestrova %2\" \"User Commands\"\n"
                       ".SH NAME\nkestrova\\-scan \\- find the stretches of recordings in which "
                       "something moves\n"
                       ".SH SYNOPSIS\n.B kestrova\\-scan\n[\\fIOPTION\\fR]... "
                       "\\fIVIDEO\\fR|\\fIFOLDER\\fR...\n"
                       ".SH DESCRIPTION\n")
            .arg(date, version);
    const QStringList paragraphs = scannerDescription().split(QStringLiteral("\n\n"));
    for (const QString& paragraph : paragraphs) {
        const QStringList lines = paragraph.split('\n', Qt::SkipEmptyParts);
        const bool hasUsage = lines.first().startsWith(QLatin1String("Usage:"));
        text += roff(lines.mid(hasUsage ? 1 : 0).join('\n')) + QStringLiteral("\n.PP\n");
    }
    text.chop(int(sizeof ".PP\n") - 1);
    text += QStringLiteral(".SH OPTIONS\n");
    forEachOption([&](const ScanOption& option, bool isFirst) {
        if (isFirst)
            text += QStringLiteral(".SS ") + groupTitle(option.group) + '\n';
        text += manOption(option);
    });
    text += manFields();
    text += QStringLiteral(".SH EXIT STATUS\n");
    for (const ExitMeaning& exit : exitMeanings())
        text += manTagged(QString::number(exit.status), exit.meaning + '.');
    return text +
           QStringLiteral(".SH SEE ALSO\nAll of it in detail:\n"
                          ".IR /usr/share/doc/kestrova\\-scan/scanner.md .\n.PP\n"
                          ".BR kestrova\\-archive (1),\n.BR kestrova (1),\n.BR ffmpeg (1)\n");
}
