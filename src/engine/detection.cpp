#include "detection.h"

#include "framepicture.h"
#include "picturesource.h"
#include "videodecoder.h"

#include <QFile>

#include <memory>
#include <new>

namespace {

bool selectsNothing(const RegionOfInterest& region, const DecodedFrame& picture) {
    const int width = picture.width();
    const int height = picture.height();
    return width > 0 && height > 0 && prepareRegion(region, width, height).isEmpty();
}

} // namespace

Detection::Detection(const DetectionOptions& options, DetectionClient& client)
    : options(options)
    , client(client) {}

DetectionOutcome Detection::run(const QString& fileName) {
    VideoDecoder decoder(options.threads);
    decoder.setInterrupt([this] { return client.isCancelled(); });
    DetectionOutcome outcome = DetectionOutcome::CannotOpen;
    if (decoder.open(QFile::encodeName(fileName).constData()))
        outcome = runOrFail(decoder);
    else if (client.isCancelled()) // which cuts an open short
        outcome = DetectionOutcome::Cancelled;
    else
        error = decoder.errorText();
    decoder.close();
    return outcome;
}

DetectionOutcome Detection::runOrFail(VideoDecoder& decoder) {
    try {
        return runOpened(decoder);
    } catch (const std::bad_alloc&) {
        error = QStringLiteral("out of memory");
        return DetectionOutcome::OutOfMemory;
    }
}

DetectionOutcome Detection::runOpened(VideoDecoder& decoder) {
    const QByteArray codecName = decoder.codecName();
    const double duration = decoder.duration();
    const StreamDescription description = decoder.description();
    PictureSource pictures(decoder, options.threads != 1, options.times);
    TimedPicture previous = pictures.next();
    TimedPicture current = previous.frame ? pictures.next() : TimedPicture();
    if (!current.frame)
        return failToBegin(pictures, previous.frame != nullptr);
    client.described(description, previous.time);
    if (pictures.frameRate() > 0.0)
        client.numbered(pictures.frameRate());
    client.opened(codecName, duration);
    if (selectsNothing(options.measure.region, *current.frame))
        client.regionIsEmpty();

    const double firstTime = previous.time;
    MotionMeasure measure(options.measure);
    ClipSegmenter segmenter(options.segmentation, firstTime,
                            std::make_shared<FramePicture>(previous.frame));
    DetectionOutcome outcome = DetectionOutcome::Cancelled;
    for (qint64 number = 1; current.frame && !client.isCancelled(); ++number) {
        const float motion = measure.measure(*previous.frame, *current.frame);
        const auto clip =
            segmenter.addFrame(motion, current.time, std::make_shared<FramePicture>(current.frame));
        if (clip)
            client.clipFound(*clip);
        client.frameProcessed(
            {number, current.time - firstTime, motion, segmenter.earliestStart()});
        previous = std::move(current);
        current = pictures.next();
        if (!current.frame && !client.isCancelled())
            outcome = outcomeOf(pictures);
        client.positionChanged(pictures.bytePosition());
    }
    if (const auto clip = segmenter.finish())
        client.clipFound(*clip);
    series = segmenter.motionSeries();
    return outcome;
}

DetectionOutcome Detection::failToBegin(const PictureSource& pictures, bool hasPicture) {
    if (client.isCancelled()) // which cuts a read short
        return DetectionOutcome::Cancelled;
    if (pictures.isFirstUseless())
        return failWithoutTimes();
    if (!pictures.end().error.isEmpty())
        error = pictures.end().error;
    else if (hasPicture)
        error = QStringLiteral("only one picture could be decoded");
    else
        error = QStringLiteral("no picture could be decoded");
    return DetectionOutcome::TooFewPictures;
}

/// How a run has ended that nobody cancelled; tells the client.
DetectionOutcome Detection::outcomeOf(const PictureSource& pictures) {
    const ReadEnd& end = pictures.end();
    if (end.cause == ReadEnd::Cause::OutOfMemory) {
        error = end.error;
        return DetectionOutcome::OutOfMemory;
    }
    client.endReached();
    if (end.cause == ReadEnd::Cause::ReadError) {
        error = QStringLiteral("cannot be read to its end: %1").arg(end.error);
        return DetectionOutcome::ReadFailed;
    }
    return pictures.isStandingStill() ? failWithoutTimes() : DetectionOutcome::Finished;
}

DetectionOutcome Detection::failWithoutTimes() {
    error = QStringLiteral("no usable times");
    return DetectionOutcome::NoUsableTimes;
}

QString Detection::errorText() const {
    return error;
}
