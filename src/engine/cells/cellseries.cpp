// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellseries.h"

#include "restlesscells.h"

#include <QThread>

#include <algorithm>
#include <deque>
#include <future>
#include <utility>
#include <vector>

namespace {

/// The groups of a map, and how many pictures it serves.
struct ServingGroups {
    SeenGroups seen;
    int pictures = 1;
};

/// Those of a block of maps.
struct BlockGroups {
    int carried = 0; ///< pictures at its begin that carry on the map of the block before
    int whole = 0;   ///< so many cells are 100 %
    std::vector<ServingGroups> maps;
};

/// `groups` fits the block's grid.
BlockGroups groupsOf(const StoredBlock& block, RegionGroups groups) {
    CellMaps maps;
    maps.append(block);
    CellMapsReader reader(maps);
    BlockGroups found;
    found.whole = groups.whole();
    while (const CellBits* changed = reader.next(groups.step())) {
        if (reader.isCarried())
            ++(found.maps.empty() ? found.carried : found.maps.back().pictures);
        else if (reader.isQuiet())
            found.maps.push_back({SeenGroups{changed->grid, {}, 0}});
        else
            found.maps.push_back({groups.find(*changed, reader.weaker(), reader.brighter())});
    }
    return found;
}

/// Finds the groups of blocks, of some at a time, and hands them out in order.
class GroupsAhead {
public:
    GroupsAhead(std::vector<StoredBlock> blocks, RegionGroups groups, int threads)
        : blocks(std::move(blocks))
        , groups(std::move(groups))
        // Where no thread can be had, it is done at the moment.
        , policy(threads > 1 ? std::launch::async | std::launch::deferred : std::launch::deferred)
        , most(std::size_t(threads)) {}

    /// False behind the last block.
    bool next(BlockGroups& found) {
        for (; begun < blocks.size() && ahead.size() < most; ++begun) {
            groups.fit(blocks[begun].grid());
            ahead.push_back(std::async(policy, groupsOf, blocks[begun], groups));
        }
        if (ahead.empty())
            return false;
        found = ahead.front().get();
        ahead.pop_front();
        return true;
    }

private:
    std::vector<StoredBlock> blocks;
    RegionGroups groups;
    std::launch policy;
    std::size_t most;
    std::size_t begun = 0;
    std::deque<std::future<BlockGroups>> ahead;
};

/// Adds the values of pictures, as far as there are times for them and they are not there yet.
class SeriesWriter {
public:
    SeriesWriter(const QVector<double>& times, CellScores& scores, MotionSeries& series)
        : times(times)
        , scores(scores)
        , series(series) {}

    void add(const BlockGroups& block) {
        repeat(block.carried);
        for (const ServingGroups& map : block.maps) {
            if (next == times.size())
                return;
            if (next >= series.times.size())
                scores.add(times[next], map.seen, block.whole);
            repeat(map.pictures);
        }
    }

private:
    void repeat(int pictures) {
        for (; pictures > 0 && next < times.size(); --pictures, ++next) {
            if (next < series.times.size())
                continue;
            series.times.append(times[next]);
            series.scores.append(scores.last());
        }
    }

    const QVector<double>& times;
    CellScores& scores;
    MotionSeries& series;
    int next = 0; ///< picture
};

} // namespace

MotionSeries seriesOf(const CellMaps& maps, const QVector<double>& times, CellScores scores,
                      int threads) {
    MotionSeries series;
    addSeries(maps, times, scores, threads, series);
    return series;
}

void addSeries(const CellMaps& maps, const QVector<double>& times, CellScores& scores, int threads,
               MotionSeries& begun) {
    if (threads == 0)
        threads = std::max(1, QThread::idealThreadCount());
    GroupsAhead groups(maps.blocks(), scores.inRegion(), threads);
    SeriesWriter writer(times, scores, begun);
    BlockGroups block;
    while (groups.next(block))
        writer.add(block);
}

CellBits restlessOf(const CellMaps& maps, const QVector<double>& times,
                    const CellOptions& options) {
    RestlessCells restless;
    CellMapsReader reader(maps);
    for (const double time : times) {
        const CellBits* changed = reader.next(options.step);
        if (!changed)
            break;
        if (!reader.isCarried())
            restless.add(time, *changed);
    }
    return restless.found();
}
