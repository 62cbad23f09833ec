// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

class QProcess;

struct ProcessResult {
    int status = -1; ///< exit status; -1 if it did not start, crashed or outran its time
    QByteArray output;
    QByteArray errors;

    bool operator==(const ProcessResult& other) const {
        return status == other.status && output == other.output && errors == other.errors;
    }
};

/// What a scan has said, without what it advises where there is nothing or too much to be found: it
/// knows more of other options where values are kept.
QByteArray withoutAdvice(const QByteArray& errors);

/// Waits for the end of a program that was started, and ends one that outruns its time.
ProcessResult endOf(QProcess& process, int timeoutMilliseconds = 120000);

/// Runs a program of the program directory, or one named by its absolute path, to its end, without
/// standard input.
ProcessResult runProgram(const QString& name, const QStringList& arguments,
                         int timeoutMilliseconds = 120000);

/// The same in another environment.
ProcessResult runProgramIn(const QProcessEnvironment& environment, const QString& name,
                           const QStringList& arguments, int timeoutMilliseconds = 120000);
