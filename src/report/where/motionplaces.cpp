// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionplaces.h"

#include "motionbox.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

constexpr double nearest = 1.0; ///< seconds from a picture to a map that tells of it
constexpr double slack = 1e-6;  ///< seconds; times are sums
constexpr double longest = 1.0; ///< seconds for which one map counts

/// Pictures in the order of their times, each with the best box so far.
class BoxSearch {
public:
    explicit BoxSearch(const QVector<double>& pictures)
        : pictures(pictures)
        , order(pictures.size())
        , found(std::size_t(pictures.size())) {
        std::iota(order.begin(), order.end(), 0);
        std::sort(order.begin(), order.end(),
                  [&](int left, int right) { return pictures[left] < pictures[right]; });
    }

    /// The map of the pictures at `before` and `time`, of which `cells` are the changed ones.
    void see(double before, double time, const CellBits& cells) {
        while (next < order.size() && pictures[order[next]] < before - slack)
            ++next;
        for (int i = next; i < order.size() && pictures[order[i]] <= time + slack; ++i) {
            const double picture = pictures[order[i]];
            const double distance = std::min(picture - before, time - picture);
            if (distance <= nearest)
                take(found[std::size_t(order[i])], motionBox(cells));
        }
    }

    QVector<QRectF> boxes() const {
        QVector<QRectF> all;
        for (const MotionBox& one : found)
            all.append(one.box);
        return all;
    }

private:
    static void take(MotionBox& best, const MotionBox& box) {
        if (box.area > best.area)
            best = box;
    }

    const QVector<double>& pictures;
    QVector<int> order;
    std::vector<MotionBox> found;
    int next = 0; ///< of the order: those before are behind us
};

} // namespace

MotionPlaces motionPlaces(const CellMaps& maps, const PlaceSearch& search,
                          const QVector<double>& pictures) {
    MotionPlaces places;
    CellMapsReader reader(maps);
    BoxSearch boxes(pictures);
    CellBits region;
    double before = search.firstTime;
    for (const double time : search.times) {
        const CellBits* changed = reader.next(search.step);
        if (!changed)
            break;
        if (!reader.isQuiet()) {
            if (region.grid != changed->grid)
                region = search.region(changed->grid);
            CellBits looked = *changed;
            looked.keep(region);
            places.map.add(looked, std::min(time - before, longest));
            boxes.see(before, time, looked);
        }
        before = time;
    }
    places.boxes = boxes.boxes();
    return places;
}
