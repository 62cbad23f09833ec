// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipformat.h"
#include "motionreport.h"
#include "scanoptions.h"

/// The report of one call: what its recordings say is collected, and written at the end.
///
/// Each recording may be told of on a thread of its own; `write` comes behind all of them.
class ScanReport {
public:
    /// The folder and the one below it for pictures are there already. Each recording is given the
    /// place in the report where is said what was found in it.
    ScanReport(const ScanOptions& options, std::vector<Recording>& recordings);

    /// Takes in a clip and writes its picture. Answers why it has none, for a person; empty after
    /// a success.
    QString addClip(const ClipLine& line) const;

    /// Writes the page as a whole or not at all. Answers why it could not be written; empty after a
    /// success.
    QString write() const;

    QString pageFile() const; ///< the path of the page

private:
    QString folder; ///< as it was named
    MotionReport report;
};
