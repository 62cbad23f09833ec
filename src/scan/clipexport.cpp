#include "clipexport.h"

#include "clipfolder.h"
#include "encoderrun.h"
#include "interrupt.h"
#include "timeofday.h"

#include <QFileInfo>

ClipExport::ClipExport(const QString& video, const ExportOptions& options)
    : options(options) {
    if (options.directory.isEmpty())
        return;
    // The encoder runs in another directory.
    source.fileName = QFileInfo(video).absoluteFilePath();
    source.clipDirectory = makeClipFolder(video, options.directory);
    source.exportTimestamps = options.startDateTime.isValid();
    source.startDateTime = options.startDateTime;
}

QString ClipExport::run(ClipLine& line) const {
    if (options.directory.isEmpty() || isEnding())
        return {};
    const DetectedClip& clip = line.clip;
    const int second =
        secondOfDay(clip.start, source.exportTimestamps ? &source.startDateTime : nullptr);
    const EncoderCall call =
        encoderCall({clip.index, clip.start, clip.end, second}, source, options.encoding);
    line.exportFile = call.outputPath;
    QString failure = runEncoder(call.arguments);
    line.isExported = failure.isEmpty();
    return failure;
}
