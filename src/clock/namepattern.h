// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QRegularExpression>
#include <QString>

#include <optional>

/// A time as a name has it.
struct NamedTime {
    QDate date;
    QTime time;
    bool hasSeconds = false;
    bool isEpoch = false;             ///< it was counted in seconds since 1970
    std::optional<int> offsetFromUtc; ///< seconds; nothing: the name tells no zone
};

/// How recordings are named, in the letters of strftime: `%Y%m%d_%H%M%S`.
///
/// `*` stands for any characters but slashes, `?` for one of them, each other for itself, in either
/// case. A pattern is found anywhere in the file's name, but not within a longer number. One with
/// slashes is of the folders, too: its last piece must be the beginning of the file's name.
class NamePattern {
public:
    enum class Separators {
        Exact,
        Any ///< for - any of - _ . : and a space, and for _ what separates dates from times as well
    };

    explicit NamePattern(const QString& text, Separators separators = Separators::Exact);

    /// Why it is none, for a person; empty if it is one.
    const QString& flaw() const { return flawText; }

    /// The first time in the name of the file at `path` that is one.
    std::optional<NamedTime> find(const QString& path) const;

private:
    void translate(const QString& text, Separators separators);
    void enclose(const QString& body, const QString& text);
    void check();
    bool has(QChar letter) const { return letters.contains(letter); }
    std::optional<NamedTime> read(const QRegularExpressionMatch& match) const;

    bool isOfFolders;
    QString letters; ///< of the groups, in their order
    QRegularExpression expression;
    QString flawText;
};
