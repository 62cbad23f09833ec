// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "promisecurve.h"

#include <algorithm>
#include <cmath>
#include <numeric>

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

std::vector<float> mediansOf(const std::deque<PacketFeature>& packets) {
    std::vector<std::size_t> ends(packetKinds, 0);
    for (const PacketFeature& packet : packets)
        ++ends[packet.kind];
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<std::size_t> next(packetKinds, 0);
    std::copy(ends.begin(), ends.end() - 1, next.begin() + 1);
    std::vector<float> costs(packets.size());
    for (const PacketFeature& packet : packets)
        costs[next[packet.kind]++] = packet.cost;
    std::vector<float> medians(packetKinds, 0.0F);
    auto begin = costs.begin();
    for (std::size_t kind = 0; kind < ends.size(); ++kind) {
        const auto end = costs.begin() + std::ptrdiff_t(ends[kind]);
        medians[kind] = medianOf(begin, end);
        begin = end;
    }
    return medians;
}

QVector<float> meansOf(const std::deque<PacketFeature>& packets,
                       const std::deque<double>& seconds) {
    const std::vector<float> medians = mediansOf(packets);
    QVector<float> sums(int(seconds.back() - seconds.front()) + 1, 0.0F);
    QVector<int> counts(sums.size(), 0);
    for (std::size_t i = 0; i < packets.size(); ++i) {
        const PacketFeature& packet = packets[i];
        const int second = int(seconds[i] - seconds.front());
        sums[second] += std::clamp(packet.cost - medians[packet.kind], lowest, highest);
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

PacketFeature featureOf(const CodedPicture& picture, int bytes) {
    constexpr int ofKnownQuantiser = 64; // kinds are below
    return {packetCost(bytes, picture.quantiser.value_or(0)),
            quint8(picture.kind + (picture.quantiser ? ofKnownQuantiser : 0))};
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
