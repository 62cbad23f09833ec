// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suggestion.h"

#include "optiontable.h"

#include <QVector>

#include <algorithm>

namespace {

/// How many letters have to be changed, added or left out to make one word of the other.
int distance(const QString& left, const QString& right) {
    QVector<int> row; // from the beginning of `left` so far to each beginning of `right`
    for (int j = 0; j <= right.size(); ++j)
        row.append(j);
    for (int i = 1; i <= left.size(); ++i) {
        int diagonal = row[0];
        row[0] = i;
        for (int j = 1; j <= right.size(); ++j) {
            const int changed = diagonal + (left[i - 1] == right[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.last();
}

} // namespace

QString nearestWord(const QString& written, const QStringList& words) {
    constexpr int longest = 64; // no word is; it costs the product of both
    if (written.size() > longest)
        return {};
    QString nearest;
    int fewest = 1 + written.size() / 3;
    for (const QString& word : words) {
        const int letters = distance(written.toLower(), word);
        if (letters < fewest || (nearest.isEmpty() && letters == fewest && letters < word.size()))
            nearest = word;
        fewest = std::min(fewest, letters);
    }
    return nearest;
}

QString suggestion(const QString& written, const QStringList& words, const QString& prefix) {
    const QString nearest = nearestWord(written, words);
    if (nearest.isEmpty())
        return {};
    return QStringLiteral(" (did you mean %1?)").arg(prefix + nearest);
}

QStringList optionNames() {
    QStringList names;
    for (const ScanOption& option : scanOptions())
        names += option.name;
    return names;
}
