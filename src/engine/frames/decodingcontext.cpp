// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decodingcontext.h"

#include "chunkreader.h"
#include "framethreadeddecoder.h"
#include "keyframedecoder.h"
#include "logging.h"
#include "packetskip.h"
#include "serialdecoder.h"

#include <algorithm>
#include <new>

namespace {

// Each holds a few pictures of its own.
constexpr int mostKeyframeDecoders = 8;

ReadEnd outOfMemory(const QString& error = QStringLiteral("out of memory")) {
    return {ReadEnd::Cause::OutOfMemory, error};
}

} // namespace

DecodingContext::DecodingContext(MediaFile& file, DecodingOptions options)
    : file(file)
    , reader(file.packets())
    , options(std::move(options)) {
    open();
}

bool DecodingContext::open() {
    if (options.isKeyframesOnly)
        return openKeyframes();
    // A pipe may have its packets come slowly; a chunk is read as a whole.
    const bool mayCut = options.work.comparison && file.canReopen();
    const AVCodecParameters& parameters = *reader.stream().codecpar;
    const ChunkPlan plan = mayCut ? planChunks(parameters, options.threads) : ChunkPlan();
    Restart none;
    return plan.workers > 0 ? openChunks(plan) : openWhole(parameters, options.threads, none);
}

bool DecodingContext::openWhole(const AVCodecParameters& parameters, int threads, Restart& from) {
    OpenedCodec opened = openCodec(parameters, threads, memory);
    error = opened.error;
    if (!opened.context)
        return false;
    // From the start of the file the decoder learns all of it anew, as it did the first time.
    if (from.isFromStart())
        from.firstPacket.reset();
    else if (!opened.hasFrameThreads)
        opened.context->has_b_frames = from.reorderDelay;
    if (from.firstPacket)
        prime(*opened.context, *from.firstPacket);
    if (opened.hasFrameThreads)
        decoder = std::make_unique<FrameThreadedDecoder>(std::move(opened.context), reader, memory,
                                                         std::move(from.firstPacket), lastNumber,
                                                         !file.canReopen());
    else
        decoder =
            std::make_unique<SerialDecoder>(std::move(opened.context), reader, memory, lastNumber);
    return true;
}

bool DecodingContext::openChunks(const ChunkPlan& plan) {
    OpenedCodec opened = openCodec(*reader.stream().codecpar, 1, memory);
    error = opened.error;
    if (!opened.context)
        return false;
    qCDebug(engineLog, "chunks, %d at a time", plan.workers);
    decoder = std::make_unique<ChunkReader>(reader, memory, std::move(opened.context), plan,
                                            options.work);
    areChunks = true;
    return true;
}

bool DecodingContext::openKeyframes() {
    const AVCodecParameters& parameters = *reader.stream().codecpar;
    const qint64 bytes = pictureBytes(parameters.format, parameters.width, parameters.height);
    const int count =
        bytes > largestKeptPicture ? 1 : std::min(options.threads, mostKeyframeDecoders);
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
    reader.readKeyframesOnly();
    decoder = std::make_unique<KeyframeDecoder>(std::move(contexts), reader, memory);
    return true;
}

Frame DecodingContext::next() {
    Frame frame;
    try {
        frame = nextFrame();
    } catch (const std::bad_alloc&) {
        ownEnd = outOfMemory();
    }
    if (frame.isThere())
        lastNumber = frame.packet;
    else if (wantedPart)
        wantedPart->endReached();
    if (!frame.chunk)
        frame.bytePosition = file.bytePosition();
    // Times were seen while the file was opened.
    if (file.hasTimes())
        frame.headerFrameRate = 0.0;
    if (frame.picture && wantedPart &&
        !wantedPart->isInside(*frame.picture->frame, frame.packet, !frame.isTimeMissing))
        frame.picture.reset();
    return frame;
}

Frame DecodingContext::nextFrame() {
    while (decoder && ownEnd.error.isEmpty()) {
        FrameDecoder::Result result = decoder->next();
        switch (result.outcome) {
        case FrameDecoder::Outcome::Frame:
            if (!areChunks)
                result.frame.headerFrameRate = decoder->headerFrameRate();
            return std::move(result.frame);
        case FrameDecoder::Outcome::End:
            return {};
        case FrameDecoder::Outcome::OutOfMemory:
            ownEnd = outOfMemory(memory.errorText());
            break;
        case FrameDecoder::Outcome::Fallback:
            restart(decoder->takeRestart());
        }
    }
    return {};
}

/// Goes on just behind the last frame that was handed out, as if another decoder had never been
/// there.
void DecodingContext::restart(Restart from) {
    qCDebug(engineLog,
            areChunks ? "no chunks from packet %lld on" : "one thread from packet %lld on",
            static_cast<long long>(lastNumber));
    decoder.reset();
    areChunks = false;
    memory.tryAgain();
    if (from.packets.empty() && !file.reopen()) {
        ownEnd = {ReadEnd::Cause::ReadError, file.errorText()};
        return;
    }
    const ParametersPointer parameters(avcodec_parameters_alloc());
    if (!parameters || avcodec_parameters_copy(parameters.get(), reader.stream().codecpar) < 0)
        throw std::bad_alloc();
    if (!from.isFromStart())
        parameters->video_delay = from.reorderDelay;
    if (!openWhole(*parameters, from.isForOneThread ? 1 : options.threads, from))
        ownEnd = outOfMemory(error);
    reader.putBack(std::move(from.packets));
}

bool DecodingContext::skipTo(std::int64_t dts) {
    Restart none;
    if (!reader.isAtStart()) {
        decoder.reset();
        if (!openWhole(*reader.stream().codecpar, options.threads, none))
            return false;
    }
    std::deque<NumberedPacket> packets = ::skipTo(reader, dts);
    const bool isThere = !packets.empty();
    reader.putBack(std::move(packets));
    return isThere;
}

void DecodingContext::beginPart(RecordingPart wanted, const PartLead& lead, qint64 delay) {
    const qint64 bytes = file.bytes();
    if (bytes <= 0)
        return;
    wantedPart.emplace(reader.stream(), wanted, lead, bytes, delay);
    reader.setWatch([this](const NumberedPacket& packet) { wantedPart->add(packet); });
    std::deque<NumberedPacket> packets = skipToPart(reader, *wantedPart);
    if (!wantedPart->hasBegun())
        wantedPart->endReached();
    if (!packets.empty() || wantedPart->begin() == 0) {
        reader.putBack(std::move(packets));
        return;
    }
    wantedPart->runUpFromStart();
    if (file.reopen())
        return;
    ownEnd = {ReadEnd::Cause::ReadError, file.errorText()};
    reader.setWatch(nullptr);
    wantedPart.reset();
}

bool DecodingContext::goToPart(const PlacedPart& part, const PacketIndexPointer& packets,
                               qint64 delay) {
    decoder.reset();
    memory.tryAgain();
    ownEnd = {};
    lastNumber = -1;
    const bool isThere = part.runUp == 0 ? file.reopen() : reader.goTo(packets, part.runUp);
    Restart none;
    if (!isThere || !openWhole(*reader.stream().codecpar, options.threads, none))
        return false;
    wantedPart.emplace(reader.stream(), part, delay);
    return true;
}

bool DecodingContext::seekBefore(std::int64_t dts) {
    auto key = ::seekBefore(reader, dts);
    if (!key || !decoder || !decoder->flush())
        return false;
    ownEnd = {};
    std::deque<NumberedPacket> packets;
    packets.push_back(std::move(*key));
    reader.putBack(std::move(packets));
    return true;
}

ReadingSigns DecodingContext::readingSigns() const {
    return {decoder ? decoder->undecodedPackets() : 0, file.hasReadingErrors(),
            file.promisedLength()};
}

qint64 DecodingContext::libavErrors() const {
    return file.libavErrors() + memory.libavErrors.load() + unownedLibavErrors();
}
