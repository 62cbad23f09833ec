// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

struct ProcessResult {
    int status = -1; ///< exit status; -1 if it did not start, crashed or outran its time
    QByteArray output;
    QByteArray errors;
};

/// Runs a program of the program directory, or one named by its absolute path, to its end, without
/// standard input.
ProcessResult runProgram(const QString& name, const QStringList& arguments,
                         int timeoutMilliseconds = 120000);

/// The same in another environment.
ProcessResult runProgramIn(const QProcessEnvironment& environment, const QString& name,
                           const QStringList& arguments, int timeoutMilliseconds = 120000);
