// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// How the file at `path` is named, with its folders, where all numbers are alike: that of
/// "/card/day1/0930.mp4" and "/card/day2/0000.mp4" is one.
QString namingOf(const QString& path);

/// The folder that it lies in.
QString folderOf(const QString& path);

/// Whether the first of two names stands in front of the other by their numbers: 9 in front of 10.
/// They are named alike.
bool isNumberedBefore(const QString& path, const QString& other);

/// Whether a number of two names has fewer digits in one of them. They are named alike.
bool areNumbersOfOtherLengths(const QString& path, const QString& other);

/// How many numbers of two names differ, those of their folders as well; more than any name has
/// where they differ in anything else.
int differingNumbers(const QString& path, const QString& other);
