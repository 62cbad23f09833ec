// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkreader.h"

#include "logging.h"

ChunkReader::ChunkReader(PacketReader& reader, FrameBudget& memory, CodecContextPointer context,
                         const ChunkPlan& plan, const PictureWork& work)
    : reader(reader)
    , plan(plan)
    , stream(std::make_shared<ChunkStream>(*reader.stream().codecpar, memory))
    , cutter(reader, stream, plan)
    , order(work.comparison(), work.keeper ? work.keeper() : nullptr)
    , areReduced(work.reduction != nullptr)
    , workers(plan.workers, stream, std::move(context), work,
              [&reader] { return reader.isInterrupted(); }) {
    stream->timeBase = reader.stream().time_base;
}

FrameDecoder::Result ChunkReader::next() {
    begin();
    while (!isNextCertain() && !hasMismatch) {
        fill();
        if (reader.isInterrupted() || inHand.empty())
            break;
        hasMismatch = !handOnNext();
    }
    if (reader.isInterrupted())
        return {Outcome::End, {}};
    if (!isNextCertain())
        return {hasMismatch ? Outcome::Fallback : Outcome::End, {}};
    Frame frame = std::move(frames.front());
    frames.pop_front();
    return {Outcome::Frame, std::move(frame)};
}

/// The last pictures of a chunk come with packets of the next one, if these are what they seem.
bool ChunkReader::isNextCertain() const {
    return !frames.empty() && before && frames.front().packet <= before->packets.back().number;
}

/// Frame threads are faster where there are fewer chunks than workers, and exact without a
/// second look where there is one alone.
void ChunkReader::begin() {
    if (hasBegun)
        return;
    hasBegun = true;
    hasMismatch = !workers.areThere();
    while (!isAtEnd && int(cutter.whole.size()) < plan.workers && canReadOn())
        isAtEnd = !cutter.read();
    hasMismatch = hasMismatch || int(cutter.whole.size()) < plan.workers;
}

/// Reads on for as long as there is room, and has what is whole decoded.
void ChunkReader::fill() {
    for (;;) {
        while (!cutter.whole.empty() && canDecodeOn()) {
            inHand.push_back(cutter.whole.front());
            cutter.whole.pop_front();
            workers.add(inHand.back());
        }
        const int enough = plan.workers + 2;
        const int inSight = int(inHand.size() + cutter.whole.size());
        if (isAtEnd || inSight >= enough || (!inHand.empty() && !canReadOn()))
            return;
        // A chunk that never ends is for frame threads.
        if (cutter.isTooLong()) {
            hasMismatch = inHand.empty();
            return;
        }
        isAtEnd = !cutter.read();
    }
}

bool ChunkReader::canReadOn() const {
    return !cutter.isTooLong() && cutter.bytesRead() - bytesDone < plan.bytesInHand;
}

/// The next whole chunk, with those that are decoded or being so.
bool ChunkReader::canDecodeOn() const {
    if (!areReduced || inHand.empty())
        return true;
    std::size_t pictures = frames.size() + cutter.whole.front()->packets.size();
    for (const ChunkPointer& chunk : inHand)
        pictures += chunk->packets.size();
    return pictures <= std::size_t(plan.cellsInHand);
}

/// False at a mismatch.
bool ChunkReader::handOnNext() {
    const ChunkPointer chunk = inHand.front();
    workers.wait(*chunk);
    if (reader.isInterrupted())
        return true;
    const auto numbers = order.add(*chunk);
    if (!numbers) {
        qCDebug(engineLog, "chunk %lld is a mismatch", static_cast<long long>(chunk->index));
        return false;
    }
    if (!numbers->empty())
        readMarksUpTo(numbers->back());
    makeFrames(chunk, *numbers);
    inHand.pop_front();
    letGoOfBefore(*chunk);
    before = chunk;
    return true;
}

void ChunkReader::letGoOfBefore(Chunk& next) {
    if (!before)
        return;
    const auto last = next.kept.find(-1);
    if (last != next.kept.end()) {
        before->kept[int(before->results.size()) - 1] = std::move(last->second);
        next.kept.erase(last);
    }
    bytesDone += before->bytes;
    // Its last pictures come with packets of the next one.
    const bool isWaiting = !frames.empty() && frames.front().chunk == before;
    before->letGo(isWaiting ? frames.front().index : int(before->results.size()));
}

/// A picture at the end of a chunk is completed by a packet behind it.
void ChunkReader::readMarksUpTo(qint64 number) {
    while (!isAtEnd && !cutter.mark(number))
        isAtEnd = !cutter.read();
}

void ChunkReader::makeFrames(const ChunkPointer& chunk, const std::vector<qint64>& numbers) {
    const AVRational& timeBase = reader.stream().time_base;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        // Those that no packet completes are never handed out.
        const PacketMark* mark = cutter.mark(numbers[i]);
        if (!mark)
            return;
        Frame frame;
        frame.packet = numbers[i];
        frame.time = secondsOf(mark->dts, timeBase);
        frame.isTimeMissing = mark->dts == AV_NOPTS_VALUE;
        frame.width = chunk->width;
        frame.height = chunk->height;
        frame.motion = chunk->results[i].motion;
        frame.cells = std::move(chunk->results[i].cells);
        frame.bytePosition = mark->bytePosition;
        frame.headerFrameRate = chunk->headerFrameRate;
        frame.chunk = chunk;
        frame.index = int(i);
        frames.push_back(std::move(frame));
        cutter.forgetBefore(numbers[i]);
    }
}

Restart ChunkReader::takeRestart() {
    Restart restart;
    restart.reorderDelay = order.reorderDelay();
    restart.isForOneThread = !inHand.empty() && inHand.front()->isDamaged;
    if (stream->firstPacket)
        restart.firstPacket.reset(av_packet_clone(stream->firstPacket.get()));
    if (before)
        before->letGo(int(before->results.size()));
    for (const ChunkPointer& chunk : chunksToGoOn()) {
        for (const NumberedPacket& packet : chunk->packets) {
            PacketPointer reference(av_packet_clone(packet.packet.get()));
            if (!reference) {
                restart.packets.clear();
                return restart;
            }
            restart.packets.push_back({packet.number, std::move(reference)});
        }
    }
    if (!restart.isFromStart() && !order.isDelayUsual())
        restart.packets.clear();
    return restart;
}

std::vector<ChunkPointer> ChunkReader::chunksToGoOn() const {
    std::vector<ChunkPointer> chunks;
    if (before)
        chunks.push_back(before);
    chunks.insert(chunks.end(), inHand.begin(), inHand.end());
    chunks.insert(chunks.end(), cutter.whole.begin(), cutter.whole.end());
    const std::vector<ChunkPointer> unfinished = cutter.unfinished();
    chunks.insert(chunks.end(), unfinished.begin(), unfinished.end());
    return chunks;
}
