// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fileseam.h"

#include "cellmeasure.h"
#include "framestream.h"
#include "picturedifference.h"

#include <QFile>

#include <algorithm>
#include <limits>
#include <new>

namespace {

/// Seconds on either side: as far back as maps look, and a few pictures more.
constexpr double mapMargin = cellHistory + 0.5;

bool areMapsWanted(const DetectionOptions& options) {
    return options.detector == Detector::Cells;
}

/// The frames on one side, as little of them as is needed.
struct SideFrames {
    std::vector<Frame> cells; ///< reduced to cells, where maps are wanted
    Frame first;
    Frame last;
};

class SeamReader {
public:
    SeamReader(const DetectionOptions& options, const std::function<bool()>& isInterrupted)
        : options(options)
        , isInterrupted(isInterrupted) {}

    /// Reads what matters of `before`. False if its last frame is not what it was.
    bool readEnd(const SeamSide& before) {
        const QVector<double>& times = before.measurement.series.times;
        // Two pictures, since a range of one is not told from none.
        double from = times.size() > 1 ? times[times.size() - 2] : before.measurement.firstTime;
        if (areMapsWanted(options))
            from = std::min(from, times.last() - mapMargin);
        end = read(before, {from - before.measurement.stream.origin,
                            std::numeric_limits<double>::infinity()});
        return end.last.isThere() && end.last.time == times.last() + before.shift;
    }

    /// The same of `next` and its first frame.
    bool readBegin(const SeamSide& next) {
        const double first = next.measurement.firstTime;
        const double span = areMapsWanted(options) ? mapMargin : 0.0;
        begin = read(next, {0.0, first - next.measurement.stream.origin + span});
        return begin.first.isThere() && begin.first.time == first + next.shift;
    }

    /// `space`: the size of the pictures on which the region is drawn.
    Seam compare(QSize space) const {
        MeasureOptions measure = options.measure;
        if (measure.region.space.isEmpty())
            measure.region.space = space;
        Seam seam;
        seam.mean = PictureDifference(measure).compare(*end.last.picture, *begin.first.picture);
        if (areMapsWanted(options))
            seam.maps = maps();
        return seam;
    }

private:
    SideFrames read(const SeamSide& side, const TimeRange& range) const {
        FramePlan plan;
        plan.times = options.times;
        plan.times.frameRate = side.measurement.stream.frameRate;
        plan.range = range;
        plan.threads = 1; // which decodes nothing ahead of the few frames that are wanted
        FrameStream frames(QFile::encodeName(side.path), plan, isInterrupted);
        SideFrames read;
        PictureCells cells;
        while (frames.isOpen()) {
            Frame frame = frames.next();
            if (!frame.isThere())
                break;
            frame.time += side.shift;
            take(std::move(frame), cells, read);
        }
        return read;
    }

    void take(Frame frame, PictureCells& cells, SideFrames& read) const {
        if (!read.first.isThere())
            read.first = frame;
        read.last = frame;
        if (!areMapsWanted(options))
            return;
        frame.cells = cells.reduce(*frame.picture);
        frame.picture.reset();
        read.cells.push_back(std::move(frame));
    }

    /// The first picture of a recording is always looked at, however many are skipped.
    std::vector<CellMap> maps() const {
        const int skip = options.measure.skip;
        const int lookedAt = int(end.cells.size()) % (skip + 1);
        CellMeasure measure(skip, skip + 1 - lookedAt);
        for (const Frame& frame : end.cells)
            measure.add(frame);
        std::vector<CellMap> found;
        for (const Frame& frame : begin.cells)
            found.push_back(measure.add(frame));
        return found;
    }

    const DetectionOptions& options;
    const std::function<bool()>& isInterrupted;
    SideFrames end;
    SideFrames begin;
};

} // namespace

std::optional<Seam> seamBetween(const SeamSide& before, const SeamSide& next,
                                const DetectionOptions& options,
                                const std::function<bool()>& isInterrupted) {
    try {
        SeamReader reader(options, isInterrupted);
        if (!reader.readEnd(before) || !reader.readBegin(next))
            return std::nullopt;
        return reader.compare(before.measurement.stream.description.size);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}
