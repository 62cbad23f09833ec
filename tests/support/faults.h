#pragma once

#include <QProcessEnvironment>
#include <QString>

/// Environments in which a program's calls of the system fail.
namespace faults {

/// `file` cannot be read from byte `offset` on.
QProcessEnvironment readError(const QString& file, qint64 offset);

/// `started` threads beside the main one can be had, and then no more.
QProcessEnvironment noThreads(int started);

/// No thread can be had while there is a file of this name.
QProcessEnvironment noThreadsWhile(const QString& file);

} // namespace faults
