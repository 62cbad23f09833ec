// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optionspelling.h"

namespace {

const char description[] =
    "Usage: kestrova-scan [OPTION]... VIDEO|FOLDER...\n"
    "Finds the stretches of recordings in which something moves and prints them\n"
    "as clips.\n"
    "\n"
    "Every picture is compared with the one before it. A clip opens when motion\n"
    "fills half of the last --minimum seconds, starts --prerecord seconds before\n"
    "them, and ends when there has been no motion for --postrecord seconds.\n"
    "\n"
    "A folder means all recordings below it, sorted: files that are named like\n"
    "videos, as in .mp4. What is hidden and links to folders are left out.\n"
    "\n"
    "@FILE stands for the arguments in this file, which are separated by white\n"
    "space and quoted by '...', \"...\" or a backslash.\n"
    "\n"
    "With --export each clip is also cut out into a file of its own, in a folder\n"
    "for each video, by the encoder beside this program.\n"
    "\n"
    "Where the kernel lets it, the scanner confines itself and the encoder: they\n"
    "can read what was named, write into the folders that were named, and reach\n"
    "no network.\n";

} // namespace

QString scannerDescription() {
    return QString::fromLatin1(description);
}

QString spelling(const ScanOption& option) {
    QString text = QStringLiteral("--") + option.name;
    if (!option.letter.isNull())
        text = QStringLiteral("-") + option.letter + QStringLiteral(", ") + text;
    if (!option.bare.isEmpty())
        return text + QStringLiteral("[=%1]").arg(option.value);
    if (!option.value.isEmpty())
        text += ' ' + option.value;
    return text;
}

QString sentence(const ScanOption& option) {
    QString text = option.help;
    if (!option.fallback.isEmpty())
        text +=
            (text.contains(';') ? QStringLiteral("; ") : QStringLiteral(", ")) + option.limits();
    else if (option.range)
        text += QStringLiteral(", ") + option.range->text();
    return text + '.';
}

QStringList spellings(const ScanOption& option) {
    QStringList all = {QStringLiteral("--") + option.name};
    if (!option.letter.isNull())
        all.prepend(QStringLiteral("-") + option.letter);
    return all;
}
