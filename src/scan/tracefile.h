#pragma once

#include "detection.h"

#include <QFile>

/// The file that --trace names: one line per frame after a recording's first.
///
/// A line is number, seconds from the first picture and motion value, separated by tabs, each with
/// as many digits as it takes to read the same number back. Numbers start at 1 in each recording.
class TraceFile {
public:
    /// Creates the file, replacing what was there; false if that fails.
    bool open(const QString& fileName);

    /// Does nothing if no file is open.
    void add(const FrameReport& frame);

    /// Writes out what is buffered; false if anything could not be written. True if none is open.
    bool close();

    QString errorText() const;

private:
    QFile file;
};
