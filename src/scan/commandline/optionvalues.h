// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "optiontable.h"

#include <QString>

#include <optional>

class QCommandLineParser;

/// The values that a command line gives to the options of the table, checked against it.
class OptionValues {
public:
    /// `parser` has read the command line and must outlive this.
    explicit OptionValues(const QCommandLineParser& parser);

    /// Of an option that takes numbers in a range.
    double number(const QString& option);
    int integer(const QString& option);

    /// The same of one that counts only where it is given.
    std::optional<double> givenNumber(const QString& option);

    /// One of the option's words.
    QString word(const QString& option);

    /// Rejects what is named by nothing, and what is given without others that it needs or with
    /// some that it excludes.
    void checkCompany();

    /// Something is wrong; what is rejected later is not told.
    void reject(const QString& message);

    QString error; ///< the first thing that is wrong, for a person; empty if nothing is

private:
    QString valueOf(const QString& option) const;
    NumberRange rangeOf(const QString& option) const;
    void check(const QString& option, double value, bool isNumber);
    QString companyFlaw(const ScanOption& option) const;

    const QCommandLineParser& parser;
    bool areOfCells; ///< --detector cells decides
};
