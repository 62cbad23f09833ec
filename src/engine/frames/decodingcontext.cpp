// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decodingcontext.h"

#include "codeccontext.h"
#include "ffmpegmutex.h"
#include "logging.h"
#include "packetskip.h"

#include <QMutexLocker>

#include <algorithm>

namespace {

// Each holds a few pictures of its own.
constexpr int mostKeyDecoders = 8;

} // namespace

bool DecodingContext::open(int mostThreads, bool isKeyframesOnly,
                           const PictureComparisonMaker& comparison) {
    threads = mostThreads;
    if (!file.isOpen()) {
        error = file.errorText();
        return false;
    }
    const AVCodecParameters& parameters = *reader.stream().codecpar;
    if (isKeyframesOnly) {
        reader.readKeyframesOnly();
        QMutexLocker lock(&ffmpegMutex());
        return openKeys();
    }
    // A pipe may have its packets come slowly; a chunk is read as a whole.
    const bool mayCut = comparison && file.canReopen();
    const ChunkPlan plan = mayCut ? planChunks(parameters, threads) : ChunkPlan();
    return plan.workers > 0 ? openChunks(plan, comparison) : openWhole(parameters, nullptr);
}

OpenedCodec DecodingContext::openLocked(const AVCodecParameters& parameters, int count) {
    QMutexLocker lock(&ffmpegMutex());
    OpenedCodec opened = openCodec(parameters, count, memory);
    error = opened.error;
    return opened;
}

/// Primed with `firstPacket`, if there is one.
bool DecodingContext::openWhole(const AVCodecParameters& parameters, const AVPacket* firstPacket) {
    OpenedCodec opened = openLocked(parameters, threads);
    if (!opened.context)
        return false;
    if (firstPacket)
        prime(*opened.context, *firstPacket);
    if (opened.hasFrameThreads)
        threaded = std::make_unique<FrameThreadedDecoder>(
            std::move(opened.context), reader,
            PacketPointer(firstPacket ? av_packet_clone(firstPacket) : nullptr), lastNumber,
            !file.canReopen());
    else
        serial = std::make_unique<SerialDecoder>(std::move(opened.context), memory);
    return true;
}

bool DecodingContext::openChunks(const ChunkPlan& plan, const PictureComparisonMaker& comparison) {
    OpenedCodec opened = openLocked(*reader.stream().codecpar, 1);
    if (!opened.context)
        return false;
    qCDebug(engineLog, "chunks, %d at a time", plan.workers);
    chunks = std::make_unique<ChunkReader>(reader, memory, std::move(opened.context), plan,
                                           comparison, chunkKeeper);
    return true;
}

bool DecodingContext::openKeys() {
    const AVCodecParameters& parameters = *reader.stream().codecpar;
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
    keys = std::make_unique<KeyframeDecoder>(std::move(contexts));
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

std::optional<ChunkFrame> DecodingContext::nextChunkFrame() {
    auto picture = chunks->next();
    if (!picture && chunks->isInDoubt() && !reader.isInterrupted())
        leaveChunks();
    return picture;
}

/// Goes on as if there had been no chunks, just behind the last picture that was handed out.
void DecodingContext::leaveChunks() {
    ChunkReader::Rest rest = chunks->takeRest();
    qCDebug(engineLog, "no chunks from packet %lld on", static_cast<long long>(rest.lastNumber));
    chunks.reset();
    if (rest.isDamaged)
        threads = 1;
    memory.tryAgain();
    if (!goOn(std::move(rest)))
        end = {ReadEnd::Cause::OutOfMemory, error};
}

bool DecodingContext::goOn(ChunkReader::Rest rest) {
    lastNumber = rest.lastNumber;
    if (rest.packets.empty() && !file.reopen()) {
        error = file.errorText();
        return false;
    }
    const bool isFromStart = rest.packets.empty() || rest.packets.front().number == 0;
    const ParametersPointer parameters(avcodec_parameters_alloc());
    if (!parameters || avcodec_parameters_copy(parameters.get(), reader.stream().codecpar) < 0) {
        error = QStringLiteral("out of memory");
        return false;
    }
    if (!isFromStart)
        parameters->video_delay = rest.reorderDelay;
    reader.putBack(std::move(rest.packets));
    return openWhole(*parameters, isFromStart ? nullptr : rest.firstPacket.get());
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
        AVFramePointer picture = serial->decode(*next->packet);
        noteRefusal(next->number);
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

/// Several threads have come to one at the first packet that is refused: all count the same.
void DecodingContext::noteRefusal(qint64 packet) {
    undecodedPackets += isLastUndecoded ? 1 : 0;
    isLastUndecoded = serial->hasRefused() && lastNumber >= 0 && packet > lastNumber;
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
    FrameThreadedDecoder::Restart restart = threaded->takeRestart();
    replay = std::move(restart.packets);
    QMutexLocker lock(&ffmpegMutex());
    threaded.reset();
    lock.unlock();
    memory.tryAgain();
    if (replay.empty() && !file.reopen()) {
        end = {ReadEnd::Cause::ReadError, file.errorText()};
        return false;
    }
    OpenedCodec opened = openLocked(*reader.stream().codecpar, 1);
    if (!opened.context) {
        end = {ReadEnd::Cause::OutOfMemory, opened.error};
        return false;
    }
    // From the start of the file the decoder learns all of it anew, as it did the first time.
    if (!replay.empty() && replay.front().number > 0) {
        opened.context->has_b_frames = restart.reorderDelay;
        if (restart.firstPacket)
            prime(*opened.context, *restart.firstPacket);
    }
    serial = std::make_unique<SerialDecoder>(std::move(opened.context), memory);
    return true;
}

bool DecodingContext::skipTo(std::int64_t dts) {
    if (!reader.isAtStart()) {
        QMutexLocker lock(&ffmpegMutex());
        threaded.reset();
        serial.reset();
        lock.unlock();
        replay.clear();
        if (!openWhole(*reader.stream().codecpar, nullptr))
            return false;
    }
    std::deque<NumberedPacket> packets = ::skipTo(reader, dts);
    const bool isThere = !packets.empty();
    reader.putBack(std::move(packets));
    return isThere;
}

bool DecodingContext::beginPart(RecordingPart wanted, qint64 delay) {
    const qint64 bytes = file.bytes();
    if (bytes <= 0)
        return false;
    part.emplace(*reader.stream().codecpar, wanted, bytes, delay);
    reader.setWatch([this](const NumberedPacket& packet) { part->add(packet); });
    std::deque<NumberedPacket> packets = skipToPart(reader, *part);
    if (!part->hasBegun())
        part->endReached();
    if (!packets.empty() || part->begin() == 0) {
        reader.putBack(std::move(packets));
        return true;
    }
    part->runUpFromStart();
    if (!file.reopen()) {
        error = file.errorText();
        return false;
    }
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
    std::int64_t back = 0;
    const std::int64_t second = av_rescale_q(1, {1, 1}, reader.stream().time_base);
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
