#include "detection.h"

#include "decodeahead.h"
#include "framepicture.h"
#include "videodecoder.h"

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
    DetectionOutcome outcome = DetectionOutcome::CannotOpen;
    if (decoder.open(fileName.toUtf8().constData()))
        outcome = runOpened(decoder);
    else
        error = decoder.errorText();
    decoder.close();
    // A cancel cuts an open or a read short, which is no failure of the file.
    const bool hasFailed =
        outcome == DetectionOutcome::CannotOpen || outcome == DetectionOutcome::TooFewPictures;
    if (!hasFailed || !client.isCancelled())
        return outcome;
    error.clear();
    return DetectionOutcome::Cancelled;
}

DetectionOutcome Detection::runOpened(VideoDecoder& decoder) {
    const QByteArray codecName = decoder.codecName();
    const double duration = decoder.duration();
    DecodeAhead pictures(decoder, options.threads != 1);
    SharedFrame previous = pictures.next().frame;
    SharedFrame current = previous ? pictures.next().frame : nullptr;
    if (!current) {
        error = previous ? QStringLiteral("only one picture could be decoded")
                         : QStringLiteral("no picture could be decoded");
        return DetectionOutcome::TooFewPictures;
    }
    client.opened(codecName, duration);

    const double firstTime = previous->time;
    MotionMeasure measure(options.measure);
    ClipSegmenter segmenter(options.segmentation, firstTime,
                            std::make_shared<FramePicture>(previous));
    bool ended = false;
    for (qint64 number = 1; current && !client.isCancelled(); ++number) {
        const float motion = measure.measure(*previous, *current);
        const auto clip =
            segmenter.addFrame(motion, current->time, std::make_shared<FramePicture>(current));
        if (clip)
            client.clipFound(*clip);
        client.frameProcessed({number, current->time - firstTime, motion});
        previous = std::move(current);
        const ReadPicture next = pictures.next();
        current = next.frame;
        ended = !current && !client.isCancelled();
        if (ended)
            client.endReached();
        client.positionChanged(next.bytePosition);
    }
    if (const auto clip = segmenter.finish())
        client.clipFound(*clip);
    series = segmenter.motionSeries();
    return ended ? DetectionOutcome::Finished : DetectionOutcome::Cancelled;
}

QString Detection::errorText() const {
    return error;
}
