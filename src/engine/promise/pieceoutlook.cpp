// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pieceoutlook.h"

#include "frame.h"
#include "mediafile.h"
#include "promisecurve.h"

#include <QFile>

#include <algorithm>
#include <cmath>

namespace {

constexpr double stretchSeconds = 10.0;
constexpr double mostPieces = 9999.0; // as parts

/// What is noted of the packets of a stream to see what its stretches promise.
class StretchNotes {
public:
    explicit StretchNotes(const AVStream& stream)
        : timeBase(stream.time_base)
        , pictures(*stream.codecpar) {}

    void add(const AVPacket& packet) {
        const double time = timeOf(packet);
        const bool isKey = (packet.flags & AV_PKT_FLAG_KEY) != 0;
        features.push_back(featureOf(pictures.of(packet), packet.size, isKey));
        seconds.push_back(time);
        position = std::max<qint64>(position, packet.pos);
        if (time <= longestCurve)
            begins.resize(std::max(begins.size(), std::size_t(time / stretchSeconds) + 1),
                          position);
    }

    QVector<PartPromise> promises() const {
        const QVector<float> curve = promiseCurve(features, seconds);
        QVector<PartPromise> all;
        for (int i = 0; !curve.isEmpty() && i < int(begins.size()); ++i)
            all.append(promiseOf(curve, i * stretchSeconds, (i + 1) * stretchSeconds));
        return all;
    }

    /// Where stretch `index` begins in the file, in bytes; behind the last one, where it ends.
    qint64 beginOf(int index) const {
        return index < int(begins.size()) ? begins[std::size_t(index)] : position;
    }

private:
    /// Seconds from the first packet, never falling.
    double timeOf(const AVPacket& packet) {
        if (packet.dts == AV_NOPTS_VALUE)
            return last;
        const double time = secondsOf(packet.dts, timeBase);
        if (!isTimed)
            first = time;
        isTimed = true;
        last = std::max(last, time - first);
        return last;
    }

    AVRational timeBase;
    CodedPictures pictures;
    std::deque<PacketFeature> features;
    std::deque<double> seconds;
    std::vector<qint64> begins;
    qint64 position = 0; ///< of the last packet whose place is known
    double first = 0.0;
    double last = 0.0;
    bool isTimed = false;
};

int piecesOf(double seconds, double longest) {
    return int(std::clamp(std::ceil(seconds / longest), 1.0, mostPieces));
}

void raise(PartPromise& promise, const PartPromise& by) {
    promise.either = std::max(promise.either, by.either);
    promise.more = std::max(promise.more, by.more);
}

QVector<PartPromise> ofPieces(const StretchNotes& notes, int pieces, qint64 bytes) {
    const QVector<PartPromise> stretches = notes.promises();
    if (areFlat(stretches) || bytes <= 0)
        return {};
    const auto pieceAt = [&](qint64 byte) {
        return std::clamp(int(double(byte) * pieces / double(bytes)), 0, pieces - 1);
    };
    QVector<PartPromise> promises(pieces);
    for (int i = 0; i < stretches.size(); ++i) {
        const int first = pieceAt(notes.beginOf(i));
        const int last = pieceAt(notes.beginOf(i + 1));
        for (int piece = first; piece <= last; ++piece)
            raise(promises[piece], stretches[i]);
    }
    return promises;
}

} // namespace

PieceOutlook lookAtPieces(const QString& fileName, double longest,
                          const std::function<bool()>& isInterrupted) {
    PieceOutlook outlook;
    MediaFile file(QFile::encodeName(fileName), isInterrupted);
    if (!file.isOpen())
        return outlook;
    outlook.pieces = piecesOf(file.facts().duration, longest);
    StretchNotes notes(*file.stream());
    while (const auto packet = file.packets().read())
        notes.add(*packet->packet);
    outlook.promises = ofPieces(notes, outlook.pieces, file.bytes());
    return outlook;
}
