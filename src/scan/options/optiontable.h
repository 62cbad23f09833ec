// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// Everything that a person can be told about the scanner's command line, in one place. The parser,
/// the help, the man page, the completions and the tables in docs/ are made from it, and
/// kestrova-archive knows from it what it passes on.
///
/// A new option is an entry in optiontable.cpp and a field of ScanOptions, which commandline.cpp
/// sets; scripts/options then writes the tables in docs/ anew.

/// What an option is about. In the order in which the groups are listed.
enum class OptionGroup { Input, Clips, Region, Output, Export, Package, Running, Help };

/// What is written behind an option's name; completions offer what fits.
enum class ValueKind { None, Number, Word, File, Folder, Text };

/// The numbers that an option takes, both ends included.
struct NumberRange {
    double lowest = 0.0;
    double highest = 0.0;
    bool isWhole = false; ///< takes whole numbers only

    QString text() const; ///< "1 to 3600"
};

/// What counts of an option where `--detector cells` decides, if that is something else.
struct CellsLimits {
    NumberRange range;
    QString fallback;
};

/// One option.
struct ScanOption {
    OptionGroup group = OptionGroup::Clips;
    QString name; ///< without its dashes
    ValueKind kind = ValueKind::None;
    QString value;                      ///< how the value is called, as in "S"; empty for a switch
    QString help;                       ///< a sentence without its full stop
    std::optional<NumberRange> range;   ///< with ValueKind::Number
    QStringList words;                  ///< with ValueKind::Word: those that it takes
    QString fallback;                   ///< the value that counts without the option; empty: none
    QString absence;                    ///< without a fallback: what happens without the option
    std::optional<CellsLimits> ofCells; ///< nothing: cells change nothing of it
    QString bare;                       ///< the value that counts where it is given without one;
                                        ///< empty: it needs one
    bool isRepeated = false;            ///< may be given several times
    QStringList needs;                  ///< one of these must be given with it, "detector cells"
                                        ///< with this very value; empty: none
    QStringList excludes;               ///< none of these may be given with it
    QString valuesKey;                  ///< the line in the head of a values file that it decides;
                                        ///< empty: motion values do not depend on it
    bool choosesValues = false;         ///< none does, but it tells which values files are of use
    QChar letter;                       ///< a short form of one letter; null: none
    QString control;                    ///< what it is called in the window; empty: not there

    /// What it takes and what counts without it: "1 to 3600 (1)", "text, jsonl or csv (text)",
    /// "0 to 10 (0.5), with --detector cells 0 to 100 (0.7)".
    QString limits() const;

    /// What it goes with: "needs --values, and excludes --part". Empty: with all.
    QString company() const;
};

/// All options, group by group.
const QVector<ScanOption>& scanOptions();

/// The option of that name, which must exist.
const ScanOption& scanOption(const QString& name);

/// The heading of a group.
QString groupTitle(OptionGroup group);

/// One way in which the scanner ends.
struct ExitMeaning {
    int status;
    QString meaning;
};
const QVector<ExitMeaning>& exitMeanings();

/// One field of the lines that are printed with `--format jsonl`.
struct JsonField {
    QString name;
    QString line; ///< "clip" or "end": of a clip, or of the end of a recording
    QString meaning;
};
const QVector<JsonField>& jsonFields();

/// "a", "a or b", "a, b or c".
QString listed(const QStringList& words);
