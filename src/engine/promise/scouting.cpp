// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scouting.h"

#include "codedpictures.h"
#include "decodingcontext.h"
#include "partplan.h"

#include <QFile>

#include <algorithm>

namespace {

constexpr int mostParts = 9000; // as names of values files have room for

/// Everything that is noted of the packets of a stream.
class PacketNotes {
public:
    PacketNotes(const AVStream& stream, qint64 delay)
        : timeBase(stream.time_base)
        , accessPoints(*stream.codecpar)
        , pictures(*stream.codecpar)
        , index(std::make_shared<PacketIndex>()) {
        times.delay = delay;
    }

    void add(const NumberedPacket& numbered) {
        const AVPacket& packet = *numbered.packet;
        addTime(numbered);
        if (!isUsable)
            return;
        points.add(numbered.number, accessPoints.next(packet));
        index->push_back({packet.pos, packet.dts, packet.size});
        const bool isKey = (packet.flags & AV_PKT_FLAG_KEY) != 0;
        features.push_back(featureOf(pictures.of(packet), packet.size, isKey));
    }

    /// Its parts, where it has any and they are worth it.
    void plan(const PartWish& wish, ScoutedRecording& scouted) {
        if (times.seconds.empty())
            return;
        scouted.seconds = times.seconds.back() - times.seconds.front();
        if (!isUsable || !points.isRegular())
            return;
        const double shortest = std::max(wish.shortest, scouted.seconds / mostParts);
        const QVector<PlacedPart> parts = placeParts(points.all(), times, shortest, wish.lead);
        if (parts.size() < std::max(wish.fewest, 2))
            return;
        scouted.parts = parts;
        scouted.packets = index;
        promise(scouted);
    }

private:
    /// Of the packets that complete no picture the first ones may have no time.
    void addTime(const NumberedPacket& numbered) {
        std::deque<double>& all = times.seconds;
        if (numbered.packet->dts == AV_NOPTS_VALUE) {
            isUsable = isUsable && numbered.number < times.delay && !isTimed;
            all.push_back(0.0);
            return;
        }
        const double time = secondsOf(numbered.packet->dts, timeBase);
        if (!isTimed)
            std::fill(all.begin(), all.end(), time);
        isUsable = isUsable && (all.empty() || time >= all.back());
        isTimed = true;
        all.push_back(time);
    }

    double secondsAt(qint64 packet) const {
        const auto place = std::min(std::size_t(packet), times.seconds.size() - 1);
        return times.seconds[place] - times.seconds.front();
    }

    void promise(ScoutedRecording& scouted) const {
        const QVector<float> curve = promiseCurve(features, times.seconds);
        for (const PlacedPart& part : scouted.parts) {
            const double begin = secondsAt(part.begin);
            const double end = secondsAt(part.end);
            scouted.partSeconds.append(end - begin);
            scouted.promises.append(promiseOf(curve, begin, end));
        }
        if (areFlat(scouted.promises))
            scouted.promises.clear();
    }

    AVRational timeBase;
    RandomAccessPoints accessPoints;
    CodedPictures pictures;
    AccessPoints points;
    PacketTimes times;
    std::shared_ptr<PacketIndex> index;
    std::deque<PacketFeature> features;
    bool isTimed = false; ///< some packet was
    bool isUsable = true; ///< so far
};

/// The recording's first picture; none where that has no time. The file is behind it then.
std::optional<Frame> firstOf(MediaFile& file) {
    DecodingContext decoder(file, {});
    Frame first = decoder.next();
    const bool isGood = first.isThere() && !first.isTimeMissing;
    first.picture.reset(); // the decoder counts its bytes
    return isGood ? std::make_optional(std::move(first)) : std::nullopt;
}

} // namespace

ScoutedRecording scout(const QString& fileName, const PartWish& wish,
                       const std::function<bool()>& isInterrupted) {
    ScoutedRecording scouted;
    MediaFile file(QFile::encodeName(fileName), isInterrupted);
    if (!file.isOpen() || !file.canReopen())
        return scouted;
    scouted.seconds = file.facts().duration;
    const auto first = firstOf(file);
    if (!first || !file.reopen())
        return scouted;
    scouted.delay = first->packet;
    scouted.firstTime = first->time;
    PacketNotes notes(*file.stream(), first->packet);
    while (const auto packet = file.packets().read())
        notes.add(*packet);
    const bool isWhole = file.packets().readEnd().error.isEmpty() && !file.hasReadingErrors();
    if (isWhole && !(isInterrupted && isInterrupted()))
        notes.plan(wish, scouted);
    return scouted;
}
