#include "detection.h"

#include "decodeahead.h"
#include "ffmpegmutex.h"
#include "framepicture.h"
#include "readend.h"
#include "videodecoder.h"

#include <QMutexLocker>

#include <memory>

namespace {

using SharedFrame = std::shared_ptr<const DecodedFrame>;

} // namespace

Detection::Detection(const DetectionOptions& options, DetectionClient& client)
    : options(options)
    , client(client) {}

DetectionOutcome Detection::run(const QString& fileName) {
    VideoDecoder decoder(options.threads);
    decoder.setInterrupt([this] { return client.isCancelled(); });
    bool isOpen = false;
    {
        QMutexLocker lock(&ffmpegMutex());
        isOpen = decoder.open(fileName.toUtf8().constData());
    }
    DetectionOutcome outcome = DetectionOutcome::CannotOpen;
    if (isOpen)
        outcome = runOpened(decoder);
    else if (client.isCancelled()) // which cuts an open short
        outcome = DetectionOutcome::Cancelled;
    else
        error = decoder.errorText();
    QMutexLocker lock(&ffmpegMutex());
    decoder.close();
    return outcome;
}

DetectionOutcome Detection::runOpened(VideoDecoder& decoder) {
    const QByteArray codecName = decoder.codecName();
    const double duration = decoder.duration();
    DecodeAhead pictures(decoder, options.threads != 1);
    ReadPicture next = pictures.next();
    SharedFrame previous = next.frame;
    if (previous)
        next = pictures.next();
    SharedFrame current = next.frame;
    if (!current)
        return failToBegin(next.end, previous != nullptr);
    client.opened(codecName, duration);

    const double firstTime = previous->time;
    MotionMeasure measure(options.measure);
    ClipSegmenter segmenter(options.segmentation, firstTime,
                            std::make_shared<FramePicture>(previous));
    DetectionOutcome outcome = DetectionOutcome::Cancelled;
    for (qint64 number = 1; current && !client.isCancelled(); ++number) {
        const float motion = measure.measure(*previous, *current);
        const auto clip =
            segmenter.addFrame(motion, current->time, std::make_shared<FramePicture>(current));
        if (clip)
            client.clipFound(*clip);
        client.frameProcessed({number, current->time - firstTime, motion});
        previous = std::move(current);
        next = pictures.next();
        current = next.frame;
        if (!current && !client.isCancelled())
            outcome = outcomeOf(next.end);
        client.positionChanged(next.bytePosition);
    }
    if (const auto clip = segmenter.finish())
        client.clipFound(*clip);
    series = segmenter.motionSeries();
    return outcome;
}

DetectionOutcome Detection::failToBegin(const ReadEnd& end, bool hasPicture) {
    if (client.isCancelled()) // which cuts a read short
        return DetectionOutcome::Cancelled;
    if (!end.error.isEmpty())
        error = end.error;
    else if (hasPicture)
        error = QStringLiteral("only one picture could be decoded");
    else
        error = QStringLiteral("no picture could be decoded");
    return DetectionOutcome::TooFewPictures;
}

/// How a run has ended that nobody cancelled; tells the client.
DetectionOutcome Detection::outcomeOf(const ReadEnd& end) {
    if (end.cause == ReadEnd::Cause::OutOfMemory) {
        error = end.error;
        return DetectionOutcome::OutOfMemory;
    }
    client.endReached();
    if (end.cause == ReadEnd::Cause::EndOfFile)
        return DetectionOutcome::Finished;
    error = QStringLiteral("cannot be read to its end: %1").arg(end.error);
    return DetectionOutcome::ReadFailed;
}

QString Detection::errorText() const {
    return error;
}
