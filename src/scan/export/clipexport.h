// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipfolders.h"
#include "clipformat.h"
#include "encoderarguments.h"
#include "scanoptions.h"

#include <functional>

/// Exports the clips of one recording, one after the other, into a folder of their own.
class ClipExport {
public:
    /// All but `isEnding`, which answers whether the scan is to end, must outlive the export.
    ClipExport(Recording& recording, const ExportOptions& options, ClipFolders& folders,
               std::function<bool()> isEnding);

    /// The encoder seeks on decoded pictures where each of them stands alone.
    void setCodec(const QByteArray& codecName) { source.isIntraCodec = isIntraCodec(codecName); }

    /// The encoder is to take the recording's pictures to be that many per second.
    void setFrameRate(double frameRate) { source.frameRate = frameRate; }

    /// Exports the line's clip, after making the folder for the first one, and notes in the line
    /// what became of that. Answers why it failed; empty after a success, and where nothing was to
    /// be exported.
    QString run(ClipLine& line);

private:
    QString refusal();
    QString makeFolder();
    EncoderCall callFor(const DetectedClip& clip, const EncodedVideo& video,
                        bool isEncodedAnew = false) const;
    QString cutOut(ClipLine& line);
    QString cutOutOfSeveral(ClipLine& line);

    Recording& recording;
    const ExportOptions& options;
    ClipFolders& folders;
    std::function<bool()> isEnding;
    EncodedVideo source;
};
