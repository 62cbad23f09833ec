// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "escaping.h"
#include "optionspelling.h"
#include "optiontext.h"

namespace {

/// What bash does to complete the value of an option; empty: nothing that it could offer.
QString bashReply(const ScanOption& option) {
    switch (option.kind) {
    case ValueKind::Word:
        return QStringLiteral("COMPREPLY=($(compgen -W '%1' -- \"$cur\"))")
            .arg(option.words.join(' '));
    case ValueKind::File:
        return QStringLiteral("compopt -o filenames; COMPREPLY=($(compgen -f -- \"$cur\"))");
    case ValueKind::Folder:
        return QStringLiteral("compopt -o filenames; COMPREPLY=($(compgen -d -- \"$cur\"))");
    default:
        return QStringLiteral("COMPREPLY=()");
    }
}

QString zshAction(const ScanOption& option) {
    switch (option.kind) {
    case ValueKind::Word:
        return '(' + option.words.join(' ') + ')';
    case ValueKind::File:
        return QStringLiteral("_files");
    case ValueKind::Folder:
        return QStringLiteral("_files -/");
    default:
        return QStringLiteral(" ");
    }
}

QString zshArgument(const ScanOption& option) {
    QString help = sentence(option);
    help.replace('[', QStringLiteral("\\[")).replace(']', QStringLiteral("\\]"));
    help.replace(':', QStringLiteral("\\:"));
    QString lines;
    for (const QString& name : spellings(option)) {
        QString argument = option.isRepeated ? '*' + name : name;
        if (!option.bare.isEmpty())
            argument += QStringLiteral("=-");
        argument += '[' + help + ']';
        if (!option.value.isEmpty())
            argument +=
                (option.bare.isEmpty() ? ":" : "::") + option.value + ':' + zshAction(option);
        lines += QStringLiteral("  ") + shellWord(argument) + QStringLiteral(" \\\n");
    }
    return lines;
}

QString fishLine(const ScanOption& option) {
    QString line = QStringLiteral("complete -c kestrova-scan -l ") + option.name;
    if (!option.letter.isNull())
        line += QStringLiteral(" -s ") + option.letter;
    switch (option.bare.isEmpty() ? option.kind : ValueKind::None) {
    case ValueKind::None:
        break;
    case ValueKind::File:
        line += QStringLiteral(" -r -F");
        break;
    case ValueKind::Folder:
        line += QStringLiteral(" -x -a '(__fish_complete_directories)'");
        break;
    case ValueKind::Word:
        line += QStringLiteral(" -x -a ") + shellWord(option.words.join(' '));
        break;
    default:
        line += QStringLiteral(" -x");
    }
    // Fish's single quotes know a backslash before a quote.
    QString help = sentence(option);
    return line + QStringLiteral(" -d '") + help.replace('\'', QStringLiteral("\\'")) +
           QStringLiteral("'\n");
}

} // namespace

QString bashCompletion() {
    QString cases;
    QStringList names;
    for (const ScanOption& option : scanOptions()) {
        names += spellings(option);
        if (option.kind != ValueKind::None && option.bare.isEmpty())
            cases +=
                QStringLiteral("    --%1) %2; return ;;\n").arg(option.name, bashReply(option));
    }
    return QStringLiteral("# bash completion for kestrova-scan\n"
                          "_kestrova_scan() {\n"
                          "  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}\n"
                          "  local IFS=$' \\t\\n'\n"
                          "  # Bash takes the = of --format=csv for a word of its own.\n"
                          "  if [[ $prev == = ]]; then prev=${COMP_WORDS[COMP_CWORD-2]}; fi\n"
                          "  if [[ $cur == = ]]; then cur=; fi\n"
                          "  case $prev in\n") +
           cases +
           QStringLiteral("  esac\n"
                          "  if [[ $cur == -* ]]; then\n"
                          "    COMPREPLY=($(compgen -W '") +
           names.join(' ') +
           QStringLiteral("' -- \"$cur\"))\n"
                          "  else\n"
                          "    compopt -o filenames\n"
                          "    local IFS=$'\\n'\n"
                          "    COMPREPLY=($(compgen -f -- \"$cur\"))\n"
                          "  fi\n"
                          "}\n"
                          "complete -F _kestrova_scan kestrova-scan\n");
}

QString zshCompletion() {
    QString text = QStringLiteral("#compdef kestrova-scan\n\n_arguments -s \\\n");
    for (const ScanOption& option : scanOptions())
        text += zshArgument(option);
    return text + QStringLiteral("  '*:recording:_files'\n");
}

QString fishCompletion() {
    QString text = QStringLiteral("# fish completion for kestrova-scan\n");
    for (const ScanOption& option : scanOptions())
        text += fishLine(option);
    return text;
}
