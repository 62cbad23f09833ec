// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decodingcontext.h"

#include "codeccontext.h"
#include "ffmpegmutex.h"
#include "logging.h"

#include <QMutexLocker>

#include <algorithm>

namespace {

// Each holds a few pictures of its own.
constexpr int mostKeyDecoders = 8;

} // namespace

bool DecodingContext::open(const char* fileName, int threads, bool areKeysWanted) {
    if (!reader.open(fileName)) {
        error = reader.errorText();
        return false;
    }
    if (areKeysWanted)
        reader.readKeyFramesOnly();
    QMutexLocker lock(&ffmpegMutex());
    if (areKeysWanted)
        return openKeys(threads);
    OpenedCodec opened = openCodec(*reader.stream()->codecpar, threads, memory);
    if (!opened.context) {
        error = opened.error;
        return false;
    }
    codecName = avcodec_get_name(opened.context->codec_id);
    if (opened.hasFrameThreads)
        threaded = std::make_unique<FrameThreadedDecoder>(std::move(opened.context));
    else
        serial = std::make_unique<SerialDecoder>(std::move(opened.context), memory);
    return true;
}

bool DecodingContext::openKeys(int threads) {
    const AVCodecParameters& parameters = *reader.stream()->codecpar;
    const qint64 bytes = pictureBytes(parameters.format, parameters.width, parameters.height);
    const int count = bytes > largestKeptPicture ? 1 : std::min(threads, mostKeyDecoders);
    std::vector<CodecContextPointer> contexts;
    while (int(contexts.size()) < count) {
        OpenedCodec opened = openCodec(parameters, 1, memory);
        error = opened.error;
        if (!opened.context)
            break;
        contexts.push_back(std::move(opened.context));
    }
    if (contexts.empty())
        return false;
    codecName = avcodec_get_name(contexts.front()->codec_id);
    keys = std::make_unique<KeyFrameDecoder>(std::move(contexts));
    return true;
}

std::optional<CompletedPicture> DecodingContext::nextPicture() {
    if (!end.error.isEmpty())
        return std::nullopt;
    if (keys)
        return nextKeyPicture();
    if (threaded) {
        FrameThreadedDecoder::Result result = threaded->next(reader);
        // Where many threads found no room, one may.
        if (result.outcome == FrameThreadedDecoder::Outcome::End && !memory.hasFailed())
            return std::nullopt;
        if (result.outcome == FrameThreadedDecoder::Outcome::Picture) {
            lastNumber = result.picture.number;
            return std::move(result.picture);
        }
        if (!goSerial())
            return std::nullopt;
    }
    return serial ? nextSerialPicture() : std::nullopt;
}

std::optional<CompletedPicture> DecodingContext::nextKeyPicture() {
    auto picture = keys->next(reader);
    if (memory.hasFailed()) {
        end = {ReadEnd::Cause::OutOfMemory, memory.errorText()};
        return std::nullopt;
    }
    return picture;
}

std::optional<CompletedPicture> DecodingContext::nextSerialPicture() {
    while (auto next = nextSerialPacket()) {
        PicturePointer picture = serial->decode(*next->packet);
        if (memory.hasFailed()) {
            end = {ReadEnd::Cause::OutOfMemory, memory.errorText()};
            return std::nullopt;
        }
        // Up to that packet the frame threads have already handed everything out.
        if (!picture || next->number <= lastNumber)
            continue;
        lastNumber = next->number;
        return CompletedPicture{next->number, next->packet->dts, std::move(picture)};
    }
    return std::nullopt;
}

std::optional<NumberedPacket> DecodingContext::nextSerialPacket() {
    if (reader.isInterrupted())
        return std::nullopt;
    if (replay.empty())
        return reader.read();
    NumberedPacket packet = std::move(replay.front());
    replay.pop_front();
    return packet;
}

/// Goes on with one thread, just behind the last picture that was handed out.
bool DecodingContext::goSerial() {
    qCDebug(engineLog, "one thread from packet %lld on", static_cast<long long>(lastNumber));
    replay = threaded->takeRestartPackets();
    const int reorderDelay = threaded->reorderDelay();
    QMutexLocker lock(&ffmpegMutex());
    threaded.reset();
    lock.unlock();
    memory.tryAgain();
    if (replay.empty() && !reader.reopen()) {
        end = {ReadEnd::Cause::ReadError, reader.errorText()};
        return false;
    }
    lock.relock();
    OpenedCodec opened = openCodec(*reader.stream()->codecpar, 1, memory);
    if (!opened.context) {
        end = {ReadEnd::Cause::OutOfMemory, opened.error};
        return false;
    }
    // From the start of the file the decoder learns the delay anew, as it did the first time.
    if (!replay.empty() && replay.front().number > 0)
        opened.context->has_b_frames = reorderDelay;
    serial = std::make_unique<SerialDecoder>(std::move(opened.context), memory);
    return true;
}

namespace {

/// Some containers give the first packets behind a seek no decoding time.
std::int64_t seekTime(const AVPacket& packet) {
    return packet.dts == AV_NOPTS_VALUE ? packet.pts : packet.dts;
}

} // namespace

/// The key frame before the last one, where there is one: pictures between two key frames may need
/// what lies before the first.
bool DecodingContext::seekBefore(std::int64_t dts) {
    replay.clear();
    auto last = seekToKey(dts);
    if (!serial || !last)
        return false;
    auto first = seekToKey(seekTime(*last->packet) - 1);
    if (!first)
        first = seekToKey(dts);
    if (!first)
        return false;
    serial->flush();
    end = {};
    replay.push_back(std::move(*first));
    return true;
}

/// A key frame at or before `latest`, the last one if the container knows; reading goes on behind
/// it.
std::optional<NumberedPacket> DecodingContext::seekToKey(std::int64_t latest) {
    const AVStream* stream = reader.stream();
    std::int64_t back = 0;
    const std::int64_t second = av_rescale_q(1, {1, 1}, stream->time_base);
    // Containers without a list of key frames lead to some place before the time.
    constexpr int mostTries = 12;
    for (int i = 0; i < mostTries && reader.seek(latest - back); ++i) {
        auto key = nextKey();
        const std::int64_t time = key ? seekTime(*key->packet) : AV_NOPTS_VALUE;
        if (time != AV_NOPTS_VALUE && time <= latest)
            return key;
        back = back == 0 ? second : back * 2;
    }
    return std::nullopt;
}

std::optional<NumberedPacket> DecodingContext::nextKey() {
    auto packet = reader.read();
    while (packet && (packet->packet->flags & AV_PKT_FLAG_KEY) == 0)
        packet = reader.read();
    return packet;
}
