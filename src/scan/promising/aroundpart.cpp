// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "aroundpart.h"

#include "cellsmeasurement.h"
#include "clipmerger.h"
#include "keptdetection.h"

#include <algorithm>

namespace {

constexpr int mostParts = 12; ///< that are decided on together

/// Of the shortest motion that makes a clip, what makes one look behind a part's border: most of a
/// short visit can lie there.
constexpr double hint = 0.25;

QVector<DetectedClip> merged(const QVector<DetectedClip>& clips, const std::optional<double>& gap) {
    if (!gap)
        return clips;
    ClipMerger merger(*gap);
    QVector<DetectedClip> all;
    const auto take = [&all](const std::optional<DetectedClip>& clip) {
        if (clip)
            all.append(*clip);
    };
    for (const DetectedClip& clip : clips)
        take(merger.add(clip));
    take(merger.finish());
    return all;
}

/// A part with those beside it, and what they tell.
class Row {
public:
    Row(const PartedRecording& parted, int index, const ScanOptions& options)
        : parted(parted)
        , options(options)
        , first(index)
        , last(index) {
        // A clip of theirs may have waited for this part.
        first -= index > 0 && parted.isMeasured(index - 1) ? 1 : 0;
        last += index + 1 < parted.count() && parted.isMeasured(index + 1) ? 1 : 0;
        decide();
    }

    /// Takes in the part before or behind that a clip reaches into. False where there is none.
    bool grow() {
        const bool canGrow = last - first + 1 < mostParts;
        const bool isBefore = canGrow && isOpenBefore() && parted.isMeasured(first - 1);
        const bool isBehind = canGrow && isOpenBehind() && parted.isMeasured(last + 1);
        first -= isBefore ? 1 : 0;
        last += isBehind ? 1 : 0;
        if (isBefore || isBehind)
            decide();
        return isBefore || isBehind;
    }

    AroundPart found() const {
        AroundPart around;
        for (const DetectedClip& clip : clips) {
            if (!reachesBefore(clip, how().minimum) && !reachesBehind(clip))
                around.clips.append(clip);
        }
        if (last - first + 1 >= mostParts)
            return around;
        const QVector<DetectedClip> hints = clipsWith(hint * how().minimum);
        if (isOpenBehind() || isAnyBehind(hints))
            around.wanted.append(last + 1);
        if (isOpenBefore() || isAnyBefore(hints, hint * how().minimum))
            around.wanted.append(first - 1);
        return around;
    }

private:
    const SegmentationOptions& how() const { return options.detection.segmentation; }

    void decide() {
        clips.clear();
        decided = Measurement();
        const auto run = parted.run(first, last);
        if (!run || run->series.times.isEmpty())
            return;
        const bool areCellsAsked = options.detection.detector == Detector::Cells;
        decided = areCellsAsked ? cellsMeasurement(*run, options.detection, CellBits()) : *run;
        begin = run->firstTime - run->stream.origin;
        end = run->series.times.last() - run->stream.origin;
        clips = merged(clipsWith(how().minimum), options.mergeGap);
    }

    QVector<DetectedClip> clipsWith(double minimum) const {
        SegmentationOptions with = how();
        with.minimum = minimum;
        return decided.hasPictures ? clipsOf(decided, with) : QVector<DetectedClip>();
    }

    /// It could begin earlier if more was known. `minimum`: of the clips that it is one of.
    bool reachesBefore(const DetectedClip& clip, double minimum) const {
        return first > 0 && clip.start < begin + minimum + options.mergeGap.value_or(0.0);
    }

    /// It could end later if more was known.
    bool reachesBehind(const DetectedClip& clip) const {
        return last + 1 < parted.count() && clip.end + options.mergeGap.value_or(0.0) >= end;
    }

    bool isAnyBefore(const QVector<DetectedClip>& all, double minimum) const {
        return std::any_of(all.cbegin(), all.cend(), [this, minimum](const DetectedClip& clip) {
            return reachesBefore(clip, minimum);
        });
    }

    bool isAnyBehind(const QVector<DetectedClip>& all) const {
        return std::any_of(all.cbegin(), all.cend(),
                           [this](const DetectedClip& clip) { return reachesBehind(clip); });
    }

    bool isOpenBefore() const { return isAnyBefore(clips, how().minimum); }
    bool isOpenBehind() const { return isAnyBehind(clips); }

    const PartedRecording& parted;
    const ScanOptions& options;
    int first;
    int last;
    Measurement decided; ///< of all of them; empty: they cannot be joined
    QVector<DetectedClip> clips;
    double begin = 0.0; ///< seconds from the recording's first picture, of what was decided on
    double end = 0.0;
};

} // namespace

AroundPart decideAround(const PartedRecording& parted, int index, const ScanOptions& options) {
    // What is restless is known of the whole alone.
    if (options.detection.cells.isRestlessIgnored)
        return {};
    Row row(parted, index, options);
    while (row.grow()) {
    }
    return row.found();
}
