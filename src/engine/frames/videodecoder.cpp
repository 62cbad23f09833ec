// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "videodecoder.h"

#include "decodingcontext.h"

#include <QThread>

#include <cmath>
#include <cstdint>
#include <utility>

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
    file = std::make_unique<MediaFile>(fileName, interrupt);
    if (!file->isOpen())
        return false;
    context = std::make_unique<DecodingContext>(
        *file, DecodingOptions{threads, isKeyframesOnly, chunkComparison, chunkKeeper});
    return context->errorText().isEmpty();
}

void VideoDecoder::setChunks(PictureComparisonMaker maker, PictureKeeperMaker keeperMaker) {
    chunkComparison = std::move(maker);
    chunkKeeper = std::move(keeperMaker);
}

bool VideoDecoder::isInChunks() const {
    return context && context->isInChunks();
}

Frame VideoDecoder::next() {
    return context ? context->next() : Frame();
}

DecodedFrame* VideoDecoder::readFrame(bool clone) {
    const Frame frame = next();
    if (!frame.picture)
        return nullptr;
    AVFrame*& decoded = frame.picture->frame;
    AVFrame* picture = clone ? av_frame_clone(decoded) : std::exchange(decoded, nullptr);
    return picture ? new DecodedFrame{frame.time, picture} : nullptr;
}

bool VideoDecoder::seekBefore(double time) {
    const auto dts = stampOf(time);
    return dts && context && context->seekBefore(*dts);
}

bool VideoDecoder::skipTo(double time) {
    const auto dts = stampOf(time);
    return dts && context && context->skipTo(*dts);
}

bool VideoDecoder::beginPart(RecordingPart part, qint64 delay) {
    return context && context->beginPart(part, delay);
}

const PartReading* VideoDecoder::part() const {
    return context ? context->part() : nullptr;
}

bool VideoDecoder::canReadAgain() const {
    return file && file->canReopen();
}

/// The stream's time stamp of a time that was read from it.
std::optional<std::int64_t> VideoDecoder::stampOf(double time) const {
    const AVStream* stream = file ? file->stream() : nullptr;
    const double dts = stream ? time / av_q2d(stream->time_base) : 0.0;
    constexpr double farthest = 1e18; // where a double still leads to a 64-bit number
    if (!stream || !(std::abs(dts) < farthest))
        return std::nullopt;
    return std::llround(dts);
}

ReadEnd VideoDecoder::readEnd() const {
    return context ? context->end() : ReadEnd();
}

DecodedFrame* VideoDecoder::takeHeldFrame() {
    AVFramePointer picture = context ? context->takeHeld() : nullptr;
    return picture ? new DecodedFrame{0.0, picture.release()} : nullptr;
}

void VideoDecoder::close() {
    context.reset();
    file.reset();
}

qint64 VideoDecoder::bytePosition() const {
    return file ? file->bytePosition() : -1;
}

int VideoDecoder::videoStreamIndex() const {
    return file && file->isOpen() ? file->stream()->index : -1;
}

StreamFacts VideoDecoder::facts() const {
    return context && context->errorText().isEmpty() ? file->facts() : StreamFacts();
}

ReadingSigns VideoDecoder::readingSigns() const {
    return context ? context->readingSigns() : ReadingSigns();
}

qint64 VideoDecoder::libavErrors() const {
    return context ? context->libavErrors() : 0;
}

QString VideoDecoder::errorText() const {
    return context ? context->errorText() : file ? file->errorText() : QString();
}

bool VideoDecoder::isFileToBlame() const {
    return file && file->isFileToBlame();
}
