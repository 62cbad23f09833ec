// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenaming.h"

#include <QVector>

#include <algorithm>
#include <limits>

namespace {

bool isDigit(QChar letter) {
    return letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
}

/// The numbers of a name, and all else.
struct NameParts {
    QString naming;           ///< a null in place of each number
    QVector<QString> numbers; ///< as they are written
};

NameParts partsOf(const QString& path) {
    NameParts parts;
    bool isInNumber = false;
    for (const QChar letter : path) {
        if (!isDigit(letter)) {
            parts.naming += letter;
        } else if (!isInNumber) {
            parts.naming += QChar::Null; // no name holds it
            parts.numbers.append(QString());
        }
        isInNumber = isDigit(letter);
        if (isInNumber)
            parts.numbers.last() += letter;
    }
    return parts;
}

QString withoutZeros(const QString& number) {
    int first = 0;
    while (first < number.size() - 1 && number[first] == QLatin1Char('0'))
        ++first;
    return number.mid(first);
}

/// As `std::strcmp` does.
int comparedNumbers(const QString& left, const QString& right) {
    const QString one = withoutZeros(left);
    const QString other = withoutZeros(right);
    return one.size() == other.size() ? one.compare(other) : one.size() - other.size();
}

} // namespace

bool isNumberedBefore(const QString& path, const QString& other) {
    const QVector<QString> left = partsOf(path).numbers;
    const QVector<QString> right = partsOf(other).numbers;
    for (int i = 0; i < std::min(left.size(), right.size()); ++i) {
        const int order = comparedNumbers(left[i], right[i]);
        if (order != 0)
            return order < 0;
    }
    return false;
}

bool areNumbersOfOtherLengths(const QString& path, const QString& other) {
    const QVector<QString> left = partsOf(path).numbers;
    const QVector<QString> right = partsOf(other).numbers;
    for (int i = 0; i < std::min(left.size(), right.size()); ++i) {
        if (left[i].size() != right[i].size())
            return true;
    }
    return false;
}

QString namingOf(const QString& path) {
    return partsOf(path).naming;
}

QString folderOf(const QString& path) {
    return path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
}

int differingNumbers(const QString& path, const QString& other) {
    const NameParts left = partsOf(path);
    const NameParts right = partsOf(other);
    if (left.naming != right.naming)
        return std::numeric_limits<int>::max();
    int count = 0;
    for (int i = 0; i < left.numbers.size(); ++i)
        count += left.numbers[i] != right.numbers[i] ? 1 : 0;
    return count;
}
