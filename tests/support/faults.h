// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcessEnvironment>
#include <QString>

/// Environments in which a program's calls of the system fail.
namespace faults {

/// `call` fails with the errno `error` on files whose paths hold `file`; failingcalls.cpp tells
/// which calls can. Writes take `room` bytes before, in each process.
QProcessEnvironment callError(const char* call, int error, const QString& file, int room = 0);

/// `file` cannot be read from byte `offset` on.
QProcessEnvironment readError(const QString& file, qint64 offset);

/// `started` threads beside the main one can be had, and then no more.
QProcessEnvironment noThreads(int started);

/// No thread can be had while there is a file of this name.
QProcessEnvironment noThreadsWhile(const QString& file);

/// On threads other than the main one, `library` (a part of its name) gets what it asks for
/// `before` times, then not once, and then always again.
QProcessEnvironment noMemoryOnce(const QString& library, int before);

} // namespace faults
