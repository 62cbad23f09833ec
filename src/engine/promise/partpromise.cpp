// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partpromise.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace {

/// What a tenth of the values exceed.
float tenthOf(std::vector<float>& values) {
    if (values.empty())
        return 0.0F;
    const auto place = std::ptrdiff_t((values.size() - 1) * 9 / 10);
    std::nth_element(values.begin(), values.begin() + place, values.end());
    return values[std::size_t(place)];
}

/// Of the seconds from `first` up to `last`.
PartPromise ofStretch(const QVector<float>& curve, int first, int last) {
    std::vector<float> more(curve.begin() + first, curve.begin() + last);
    std::vector<float> either = more;
    for (float& value : either)
        value = std::abs(value);
    return {tenthOf(either), tenthOf(more)};
}

PartPromise betterOf(const PartPromise& left, const PartPromise& right) {
    return {std::max(left.either, right.either), std::max(left.more, right.more)};
}

QVector<int> orderedBy(const QVector<PartPromise>& parts, float PartPromise::*side) {
    QVector<int> places(parts.size());
    std::iota(places.begin(), places.end(), 0);
    std::stable_sort(places.begin(), places.end(),
                     [&](int left, int right) { return parts[left].*side > parts[right].*side; });
    return places;
}

} // namespace

PartPromise promiseOf(const QVector<float>& curve, double begin, double end) {
    constexpr int stretch = 10; // seconds
    const auto placeOf = [&curve](double second) {
        return int(std::clamp(second, 0.0, double(curve.size())));
    };
    int first = placeOf(std::floor(begin));
    const int last = std::max(first, placeOf(std::ceil(end)));
    // The last one takes what is left.
    const auto endOf = [&] { return last - first < 2 * stretch ? last : first + stretch; };
    PartPromise best = ofStretch(curve, first, endOf());
    while (endOf() < last) {
        first = endOf();
        best = betterOf(best, ofStretch(curve, first, endOf()));
    }
    return best;
}

bool areFlat(const QVector<PartPromise>& parts) {
    // Sizes that differ by less than this differ by chance.
    constexpr float least = 0.01F;
    return std::all_of(parts.cbegin(), parts.cend(),
                       [](const PartPromise& part) { return part.either < least; });
}

QVector<int> promisingOrder(const QVector<PartPromise>& parts) {
    const QVector<int> byEither = orderedBy(parts, &PartPromise::either);
    const QVector<int> byMore = orderedBy(parts, &PartPromise::more);
    QVector<int> order;
    std::vector<char> areTaken(std::size_t(parts.size()), 0);
    const auto take = [&](int place) {
        if (!std::exchange(areTaken[std::size_t(place)], 1))
            order.append(place);
    };
    for (int i = 0; i < parts.size(); ++i) {
        take(byEither[i]);
        take(byMore[i]);
    }
    return order;
}
