// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretchreader.h"

#include "logging.h"

namespace {

double secondsOf(std::int64_t dts, const AVRational& timeBase) {
    return double(dts) * (double(timeBase.num) / double(timeBase.den));
}

} // namespace

StretchReader::StretchReader(PacketReader& reader, PictureMemory& memory,
                             CodecContextPointer context, const StretchPlan& plan,
                             const PictureComparisonMaker& maker,
                             const PictureKeeperMaker& keeperMaker)
    : reader(reader)
    , plan(plan)
    , stream(std::make_shared<StretchStream>(*reader.stream()->codecpar, memory))
    , cutter(reader, stream, plan)
    , order(maker(), keeperMaker ? keeperMaker() : nullptr)
    , hasTimes(reader.stream()->start_time != AV_NOPTS_VALUE)
    , workers(plan.workers, stream, std::move(context), maker, keeperMaker,
              [&reader] { return reader.isInterrupted(); }) {}

std::optional<StretchedPicture> StretchReader::next() {
    begin();
    while (!isNextCertain() && !hasDoubt) {
        fill();
        if (reader.isInterrupted() || inHand.empty())
            return std::nullopt;
        hasDoubt = !handOnNext();
    }
    if (!isNextCertain() || reader.isInterrupted())
        return std::nullopt;
    StretchedPicture picture = std::move(pictures.front());
    pictures.pop_front();
    lastNumber = picture.packet;
    return picture;
}

/// The last pictures of a stretch come with packets of the next one, if these are what they seem.
bool StretchReader::isNextCertain() const {
    return !pictures.empty() && before && pictures.front().packet <= before->packets.back().number;
}

/// Frame threads are faster where there are fewer stretches than workers, and exact without a
/// second look where there is one alone.
void StretchReader::begin() {
    if (hasBegun)
        return;
    hasBegun = true;
    hasDoubt = !workers.areThere();
    while (!isAtEnd && int(cutter.whole.size()) < plan.workers && canReadOn())
        isAtEnd = !cutter.read();
    hasDoubt = hasDoubt || int(cutter.whole.size()) < plan.workers;
}

/// Reads on for as long as there is room, and has what is whole decoded.
void StretchReader::fill() {
    for (;;) {
        while (!cutter.whole.empty()) {
            inHand.push_back(cutter.whole.front());
            cutter.whole.pop_front();
            workers.add(inHand.back());
        }
        const int enough = plan.workers + 2;
        if (isAtEnd || int(inHand.size()) >= enough || (!inHand.empty() && !canReadOn()))
            return;
        // A stretch that never ends is for frame threads.
        if (cutter.isTooLong()) {
            hasDoubt = inHand.empty();
            return;
        }
        isAtEnd = !cutter.read();
    }
}

bool StretchReader::canReadOn() const {
    return !cutter.isTooLong() && cutter.bytesRead() - bytesDone < plan.bytesInHand;
}

/// False in doubt.
bool StretchReader::handOnNext() {
    const StretchPointer stretch = inHand.front();
    workers.wait(*stretch);
    if (reader.isInterrupted())
        return true;
    const auto numbers = order.add(*stretch);
    if (!numbers) {
        qCDebug(engineLog, "stretch %lld is in doubt", static_cast<long long>(stretch->index));
        return false;
    }
    if (!numbers->empty())
        readMarksUpTo(numbers->back());
    makePictures(stretch, *numbers);
    inHand.pop_front();
    letGoOfBefore(*stretch);
    before = stretch;
    return true;
}

void StretchReader::letGoOfBefore(Stretch& next) {
    if (!before)
        return;
    const auto last = next.kept.find(-1);
    if (last != next.kept.end()) {
        before->kept[int(before->results.size()) - 1] = std::move(last->second);
        next.kept.erase(last);
    }
    bytesDone += before->bytes;
    // Its last pictures come with packets of the next one.
    const bool isWaiting = !pictures.empty() && pictures.front().stretch == before;
    before->letGo(isWaiting ? pictures.front().index : int(before->results.size()));
}

/// A picture at the end of a stretch is completed by a packet behind it.
void StretchReader::readMarksUpTo(qint64 number) {
    while (!isAtEnd && !cutter.mark(number))
        isAtEnd = !cutter.read();
}

void StretchReader::makePictures(const StretchPointer& stretch,
                                 const std::vector<qint64>& numbers) {
    const AVRational& timeBase = reader.stream()->time_base;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        // Those that no packet completes are never handed out.
        const PacketMark* mark = cutter.mark(numbers[i]);
        if (!mark)
            return;
        StretchedPicture picture;
        picture.packet = numbers[i];
        picture.time = secondsOf(mark->dts, timeBase);
        picture.isTimeMissing = mark->dts == AV_NOPTS_VALUE;
        picture.width = stretch->width;
        picture.height = stretch->height;
        picture.value = stretch->results[i].value;
        picture.bytePosition = mark->bytePosition;
        picture.headerFrameRate = hasTimes ? 0.0 : stretch->headerFrameRate;
        picture.stretch = stretch;
        picture.index = int(i);
        pictures.push_back(std::move(picture));
        cutter.forgetBefore(numbers[i]);
    }
}

StretchReader::Rest StretchReader::takeRest() {
    Rest rest;
    rest.lastNumber = lastNumber;
    rest.isDamaged = !inHand.empty() && inHand.front()->isDamaged;
    if (stream->firstPacket)
        rest.firstPacket.reset(av_packet_clone(stream->firstPacket.get()));
    if (before)
        before->letGo(int(before->results.size()));
    const std::vector<StretchPointer> stretches = stretchesToGoOn();
    const bool isFromStart = stretches.empty() || stretches.front()->packets.front().number == 0;
    if (!isFromStart && !order.isDelayUsual())
        return rest;
    if (!isFromStart)
        rest.reorderDelay = order.reorderDelay();
    for (const StretchPointer& stretch : stretches) {
        for (const NumberedPacket& packet : stretch->packets) {
            PacketPointer reference(av_packet_clone(packet.packet.get()));
            if (!reference)
                return {{}, std::move(rest.firstPacket), lastNumber, rest.isDamaged, -1};
            rest.packets.push_back({packet.number, std::move(reference)});
        }
    }
    return rest;
}

std::vector<StretchPointer> StretchReader::stretchesToGoOn() const {
    std::vector<StretchPointer> stretches;
    if (before)
        stretches.push_back(before);
    stretches.insert(stretches.end(), inHand.begin(), inHand.end());
    stretches.insert(stretches.end(), cutter.whole.begin(), cutter.whole.end());
    const std::vector<StretchPointer> unfinished = cutter.unfinished();
    stretches.insert(stretches.end(), unfinished.begin(), unfinished.end());
    return stretches;
}

FramePointer decodeAgain(const StretchedPicture& picture) {
    FramePointer found;
    decodeAgain(*picture.stretch, [&found, &picture](int place, FramePointer frame) {
        if (place == picture.index)
            found = std::move(frame);
        return !found;
    });
    return found;
}

void decodeAgain(const Stretch& stretch,
                 const std::function<bool(int place, FramePointer frame)>& take) {
    qCDebug(engineLog, "stretch %lld once more", static_cast<long long>(stretch.index));
    StretchDecoder decoder(stretch.stream, nullptr, {}, nullptr, [] { return false; });
    decoder.decodeAgain(stretch, take);
}

QImage keptPicture(const StretchedPicture& picture) {
    const KeptPictures& kept = picture.stretch->kept;
    const auto found = kept.find(picture.index);
    return found == kept.end() ? QImage() : found->second.picture;
}

qint64 keptBytes(const StretchedPicture& picture) {
    return picture.stretch->stream->keptBytes;
}
