// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "videodecoder.h"

#include "decodingcontext.h"
#include "ffmpegmutex.h"

#include <QMutexLocker>
#include <QThread>

#include <cmath>
#include <cstdint>

namespace {

double timeOf(std::int64_t dts, const AVRational& timeBase) {
    // A missing decoding time is the smallest 64-bit number, which a double holds exactly.
    return double(dts) * (double(timeBase.num) / double(timeBase.den));
}

} // namespace

VideoDecoder::VideoDecoder(int threads)
    : threads(threads > 0 ? threads : qMax(1, QThread::idealThreadCount())) {}

VideoDecoder::~VideoDecoder() {
    close();
}

void VideoDecoder::setInterrupt(std::function<bool()> isInterrupted) {
    interrupt = std::move(isInterrupted);
}

bool VideoDecoder::open(const char* fileName) {
    close();
    context = std::make_unique<DecodingContext>(fileName, interrupt);
    context->chunkKeeper = chunkKeeper;
    return context->open(threads, isKeyframesOnly, chunkComparison);
}

void VideoDecoder::setChunks(PictureComparisonMaker maker, PictureKeeperMaker keeperMaker) {
    chunkComparison = std::move(maker);
    chunkKeeper = std::move(keeperMaker);
}

bool VideoDecoder::hasChunks() const {
    return context && context->chunks;
}

std::optional<ChunkFrame> VideoDecoder::readChunked() {
    return hasChunks() ? context->nextChunkFrame() : std::nullopt;
}

DecodedFrame* VideoDecoder::readFrame(bool clone) {
    auto completed = context ? context->nextPicture() : std::nullopt;
    if (!completed && context && context->part)
        context->part->endReached();
    if (!completed || !isInPart(*completed))
        return nullptr;
    AVFrame* picture =
        clone ? av_frame_clone(completed->picture.get()) : completed->picture.release();
    if (!picture) {
        context->end = {ReadEnd::Cause::OutOfMemory, QStringLiteral("out of memory")};
        return nullptr;
    }
    const AVStream* stream = context->file.stream();
    return new DecodedFrame{timeOf(completed->dts, stream->time_base), picture, completed->number,
                            completed->dts == AV_NOPTS_VALUE};
}

bool VideoDecoder::seekBefore(double time) {
    const auto dts = stampOf(time);
    return dts && context->seekBefore(*dts);
}

bool VideoDecoder::skipTo(double time) {
    const auto dts = stampOf(time);
    return dts && context->skipTo(*dts);
}

bool VideoDecoder::beginPart(RecordingPart part, qint64 delay) {
    return context && context->beginPart(part, delay);
}

const PartReading* VideoDecoder::part() const {
    return context && context->part ? &*context->part : nullptr;
}

bool VideoDecoder::isInPart(const CompletedPicture& picture) {
    return !context->part ||
           context->part->isInside(*picture.picture, picture.number, picture.dts != AV_NOPTS_VALUE);
}

bool VideoDecoder::canReadAgain() const {
    return context && context->file.canReopen();
}

/// The stream's time stamp of a time that was read from it.
std::optional<std::int64_t> VideoDecoder::stampOf(double time) const {
    const AVStream* stream = context ? context->file.stream() : nullptr;
    const double dts = stream ? time / av_q2d(stream->time_base) : 0.0;
    constexpr double farthest = 1e18; // where a double still leads to a 64-bit number
    if (!stream || !(std::abs(dts) < farthest))
        return std::nullopt;
    return std::llround(dts);
}

ReadEnd VideoDecoder::readEnd() const {
    if (!context)
        return {};
    return context->end.error.isEmpty() ? context->reader.readEnd() : context->end;
}

DecodedFrame* VideoDecoder::takeHeldFrame() {
    AVFramePointer picture =
        context && context->serial ? context->serial->takeHeld() : AVFramePointer();
    if (!picture)
        return nullptr;
    const AVStream* stream = context->file.stream();
    return new DecodedFrame{timeOf(AV_NOPTS_VALUE, stream->time_base), picture.release(), -1, true};
}

void VideoDecoder::close() {
    if (!context)
        return;
    // Its threads take the mutex themselves.
    context->chunks.reset();
    QMutexLocker lock(&ffmpegMutex());
    context.reset();
}

qint64 VideoDecoder::bytePosition() const {
    return context ? context->file.bytePosition() : -1;
}

int VideoDecoder::videoStreamIndex() const {
    const AVStream* stream = context ? context->file.stream() : nullptr;
    return stream ? stream->index : -1;
}

StreamFacts VideoDecoder::facts() const {
    return context ? context->file.facts() : StreamFacts();
}

double VideoDecoder::headerFrameRate() const {
    const AVStream* stream = context ? context->file.stream() : nullptr;
    if (!stream || stream->start_time != AV_NOPTS_VALUE || context->keys || context->chunks)
        return 0.0;
    return context->threaded ? context->threaded->frameRate() : context->serial->frameRate();
}

ReadingSigns VideoDecoder::readingSigns() const {
    if (!context)
        return {};
    return {context->undecodedPackets, context->file.hasReadingErrors(),
            context->file.promisedLength()};
}

qint64 VideoDecoder::libavErrors() const {
    const qint64 own =
        context ? context->file.libavErrors() + context->memory.libavErrors.load() : 0;
    return own + unownedLibavErrors();
}

QString VideoDecoder::errorText() const {
    return context ? context->error : QString();
}

bool VideoDecoder::isFileToBlame() const {
    return context && context->file.isFileToBlame();
}
