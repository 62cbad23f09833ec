// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "promisecurve.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace {

constexpr float lowest = -2.0F;
constexpr float highest = 3.0F;
constexpr int around = 60; // seconds to either side

using Values = std::vector<float>::iterator;

/// Reorders what it is given.
float medianOf(Values begin, Values end) {
    if (begin == end)
        return 0.0F;
    const Values middle = begin + (end - begin) / 2;
    std::nth_element(begin, middle, end);
    return *middle;
}

/// The group of each packet of a stream, in order: those of its kind.
struct KindGroups {
    static constexpr std::size_t count = packetKinds;
    static constexpr std::size_t fewest = 1; ///< packets that tell what is usual in a group

    std::size_t next(const PacketFeature& packet) { return packet.kind; }
};

/// Those of its kind that lie as far behind a key frame; what is further away is together.
struct PlaceGroups {
    static constexpr std::size_t places = 256;
    static constexpr std::size_t count = packetKinds * places;
    static constexpr std::size_t fewest = 20;

    std::size_t next(const PacketFeature& packet) {
        place = packet.isKey ? 0 : std::min(place + 1, places - 1);
        return packet.kind * places + place;
    }

    std::size_t place = 0;
};

/// What a packet of each group costs; nothing where there are too few to tell.
template<class Groups>
std::vector<std::optional<float>> mediansOf(const std::deque<PacketFeature>& packets) {
    std::vector<std::size_t> ends(Groups::count, 0);
    Groups counted;
    for (const PacketFeature& packet : packets)
        ++ends[counted.next(packet)];
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<std::size_t> next(Groups::count, 0);
    std::copy(ends.begin(), ends.end() - 1, next.begin() + 1);
    std::vector<float> costs(packets.size());
    Groups sorted;
    for (const PacketFeature& packet : packets)
        costs[next[sorted.next(packet)]++] = packet.cost;
    std::vector<std::optional<float>> medians(Groups::count);
    auto begin = costs.begin();
    for (std::size_t group = 0; group < ends.size(); ++group) {
        const auto end = costs.begin() + std::ptrdiff_t(ends[group]);
        if (std::size_t(end - begin) >= Groups::fewest)
            medians[group] = medianOf(begin, end);
        begin = end;
    }
    return medians;
}

QVector<float> meansOf(const std::deque<PacketFeature>& packets,
                       const std::deque<double>& seconds) {
    const auto ofKinds = mediansOf<KindGroups>(packets);
    const auto ofPlaces = mediansOf<PlaceGroups>(packets);
    PlaceGroups places;
    QVector<float> sums(int(seconds.back() - seconds.front()) + 1, 0.0F);
    QVector<int> counts(sums.size(), 0);
    for (std::size_t i = 0; i < packets.size(); ++i) {
        const PacketFeature& packet = packets[i];
        const int second = int(seconds[i] - seconds.front());
        const float usual = ofPlaces[places.next(packet)].value_or(*ofKinds[packet.kind]);
        sums[second] += std::clamp(packet.cost - usual, lowest, highest);
        ++counts[second];
    }
    for (int i = 0; i < sums.size(); ++i)
        sums[i] /= float(std::max(counts[i], 1));
    return sums;
}

} // namespace

float packetCost(int bytes, int quantiser) {
    // What a picture costs in which nothing has changed, so that a few bytes more are nothing.
    constexpr float least = 16.0F;
    return std::log(float(bytes) + least) + float(quantiser) * std::log(2.0F) / 6.0F;
}

PacketFeature featureOf(const CodedPicture& picture, int bytes, bool isKey) {
    constexpr int ofKnownQuantiser = 64; // kinds are below
    return {packetCost(bytes, picture.quantiser.value_or(0)),
            quint8(picture.kind + (picture.quantiser ? ofKnownQuantiser : 0)), isKey};
}

QVector<float> promiseCurve(const std::deque<PacketFeature>& packets,
                            const std::deque<double>& seconds) {
    if (packets.empty() || !(seconds.back() - seconds.front() <= longestCurve))
        return {};
    const QVector<float> means = meansOf(packets, seconds);
    QVector<float> curve(means.size());
    std::vector<float> window;
    for (int i = 0; i < means.size(); ++i) {
        const int begin = std::max(i - around, 0);
        const int end = std::min(i + around + 1, means.size());
        window.assign(means.begin() + begin, means.begin() + end);
        curve[i] = means[i] - medianOf(window.begin(), window.end());
    }
    return curve;
}
