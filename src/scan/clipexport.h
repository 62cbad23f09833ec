#pragma once

#include "clipformat.h"
#include "intracodec.h"
#include "scanoptions.h"

/// Exports the clips of one recording, one after the other, into a folder of their own.
class ClipExport {
public:
    /// Makes the folder, unless the options ask for no export.
    ClipExport(const QString& video, const ExportOptions& options);

    /// The encoder seeks on decoded pictures where each of them stands alone.
    void setCodec(const QByteArray& codecName) { source.isIntraCodec = isIntraCodec(codecName); }

    /// The encoder is to take the recording's pictures to be that many per second.
    void setFrameRate(double frameRate) { source.frameRate = frameRate; }

    /// Exports the line's clip and notes in it what became of that. Answers why it failed; empty
    /// after a success, and where nothing was to be exported.
    QString run(ClipLine& line) const;

private:
    const ExportOptions& options;
    EncodedVideo source;
};
