// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturefinder.h"

#include "logging.h"
#include "motionmeasure.h"
#include "snapshotimage.h"

#include <QFile>

#include <algorithm>
#include <new>

PictureFinder::PictureFinder(const QString& fileName, const DetectionOptions& options,
                             const Measurement& measurement, std::function<bool()> isInterrupted)
    : fileName(QFile::encodeName(fileName))
    , options(options)
    , measurement(measurement)
    , isInterrupted(std::move(isInterrupted))
    , canSeek(measurement.stream.frameRate == 0.0 && !options.isKeyframesOnly) {
    this->options.times.frameRate = measurement.stream.frameRate;
}

QImage PictureFinder::snapshot(int index) {
    if (index == lastIndex)
        return lastSnapshot;
    error = refusal();
    QImage image = error.isEmpty() ? findSnapshot(index) : QImage();
    if (error.isEmpty())
        error = refusal();
    if (!error.isEmpty())
        image = QImage();
    lastIndex = image.isNull() ? -1 : index;
    lastSnapshot = image;
    return image;
}

QImage PictureFinder::findSnapshot(int index) {
    try {
        QImage image = canSeek ? snapshotFromKeyFrame(index) : QImage();
        canSeek = !image.isNull();
        if (canSeek)
            return image;
        qCDebug(engineLog, "picture %d is looked for from the start", index);
        image = isInterrupted() ? QImage() : snapshotFromStart(index);
        if (image.isNull() && isInterrupted())
            error = QStringLiteral("interrupted");
        return image;
    } catch (const std::bad_alloc&) {
        error = QStringLiteral("out of memory");
        return {};
    }
}

/// Null where what comes out is not, picture by picture, what was measured.
QImage PictureFinder::snapshotFromKeyFrame(int index) {
    const int count = measurement.series.times.size() + 1;
    const int begin = std::max(index - 1, 0);
    const int first = measuredFrom(index);
    const int second = measuredFrom(first + 1);
    if (first >= count || !openSeeking() || !seeking->seekBefore(timeOf(begin)))
        return {};
    Frame previous = seeking->next();
    while (previous.isThere() && previous.time < timeOf(begin))
        previous = seeking->next();
    if (!previous.isThere() || previous.time != timeOf(begin))
        return {};

    MeasureOptions everyPicture = options.measure;
    everyPicture.skip = 0;
    MotionMeasure measure(everyPicture);
    QImage image = begin == index ? snapshotImage(*previous.picture) : QImage();
    bool isProved = false;
    for (int i = begin + 1; i <= std::min(second, count - 1); ++i) {
        Frame current = seeking->next();
        if (!current.isThere() || current.time != timeOf(i))
            return {};
        if (i == index)
            image = snapshotImage(*current.picture);
        const MotionScore motion = measure.measure(*previous.picture, *current.picture);
        const MotionScore kept = measurement.series.scores[i - 1];
        if ((i == first || i == second) && !(motion == kept))
            return {};
        isProved = isProved || ((i == first || i == second) && kept.value > 0.0F);
        previous = std::move(current);
    }
    return isProved ? image : QImage();
}

QImage PictureFinder::snapshotFromStart(int index) {
    const qint64 number = measurement.firstNumber + index;
    if ((!frames || nextNumber > number) && !openLinear())
        return {};
    Frame frame;
    for (; nextNumber <= number; ++nextNumber) {
        frame = frames->next();
        if (!frame.isThere()) {
            error = QStringLiteral("cannot be read again up to a clip's picture");
            frames.reset();
            return {};
        }
    }
    return snapshotImage(*frame.picture);
}

bool PictureFinder::openSeeking() {
    FramePlan plan;
    plan.threads = 1;
    if (!seeking)
        seeking = std::make_unique<FrameStream>(fileName, plan, isInterrupted);
    return seeking->isOpen();
}

bool PictureFinder::openLinear() {
    FramePlan plan;
    plan.times = options.times;
    plan.isKeyframesOnly = options.isKeyframesOnly;
    plan.threads = options.threads;
    frames.reset();
    frames = std::make_unique<FrameStream>(fileName, plan, isInterrupted);
    if (!frames->isOpen()) {
        error = QStringLiteral("cannot be read again: %1").arg(frames->errorText());
        frames.reset();
        return false;
    }
    nextNumber = 0;
    return true;
}

double PictureFinder::timeOf(int index) const {
    return index == 0 ? measurement.firstTime : measurement.series.times[index - 1];
}

/// The first picture from `index` on whose value was measured and not held.
int PictureFinder::measuredFrom(int index) const {
    const int from = std::max(index, 1);
    return from + int(skippedFrom(from, options.measure.skip));
}
