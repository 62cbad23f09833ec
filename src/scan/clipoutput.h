// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scanoutputs.h"

/// Where the clips of one recording go: pictures, files, the report and standard output.
class ClipOutput {
public:
    /// `index` is the recording's place in `options.videos`. All must outlive this object.
    ClipOutput(int index, const ScanOptions& options, ScanOutputs& outputs);

    /// Does with a clip whatever is asked for, and fills in what became of it. `video` is null
    /// where it is no regular file.
    void write(ClipLine& found, WatchedRecording* video);

    void print(const QByteArray& lines); ///< on standard output

    /// Whether nothing has failed so far. What has was complained of.
    bool areWritten() const { return areAllWritten; }

private:
    void exportClip(ClipLine& found, WatchedRecording* video);
    void showInReport(const ClipLine& found);
    QString writeSnapshot(const DetectedClip& clip);
    void complainOfMissingPicture(const DetectedClip& clip);

    int index;
    const ScanOptions& options;
    ScanOutputs& outputs;
    ClipExport& exporter;
    bool areAllWritten = true;
};
