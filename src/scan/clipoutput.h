// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipexport.h"
#include "scanoutputs.h"

/// Where the clips of one recording go: pictures, files, the report and standard output.
class ClipOutput {
public:
    /// All must outlive this object.
    ClipOutput(Recording& recording, const ScanOptions& options, ScanOutputs& outputs);

    /// Exports its clips.
    ClipExport& exports() { return exporter; }

    /// Writes all that is asked for of a clip but its line, and fills in what became of it. False
    /// if something failed.
    bool make(ClipLine& found);

    void print(const QByteArray& lines); ///< on standard output

    /// Whether nothing has failed so far. What has was complained of.
    bool areWritten() const { return areAllWritten; }

private:
    void exportClip(ClipLine& found);
    void showInReport(const ClipLine& found);
    QString writeSnapshot(const DetectedClip& clip);
    void fail(const QString& subject, const QString& reason);
    void tellOfMissingPicture(const DetectedClip& clip);

    Recording& recording;
    const ScanOptions& options;
    ScanOutputs& outputs;
    ClipExport exporter;
    bool areAllWritten = true;
};
