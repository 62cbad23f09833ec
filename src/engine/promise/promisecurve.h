// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codedpictures.h"

#include <QVector>

#include <deque>

/// What a packet tells of how much there is to be said of its picture.
struct PacketFeature {
    float cost = 0.0F; ///< logarithm of its bytes, with the quantiser taken out where it is known
    quint8 kind = 0;   ///< below packetKinds; those of one kind are compared with each other alone
    bool isKey = false;
};

constexpr int packetKinds = 128;

/// The cost of a packet of so many bytes. `quantiser` as codecs of the H.26x family count: 6 more
/// take about half of the bits.
float packetCost(int bytes, int quantiser);

/// Of a packet of so many bytes that holds `picture`.
PacketFeature featureOf(const CodedPicture& picture, int bytes, bool isKey);

/// Seconds that a recording may last for there to be a curve of it: a hundred days.
constexpr double longestCurve = 100.0 * 86400.0;

/// By how much the packets of each second, from the first packet on, cost more than what is usual
/// around it, or less: the mean over the second of what each packet's cost is above the median of
/// its kind, between -2 and 3, less the median of these means over a minute to either side. 0 for
/// seconds without packets. Where enough of a kind lie equally far behind a key frame, their median
/// counts: an encoder that keeps to a rate saves behind each of them.
///
/// Motion shows as more with most encoders, and as less with some that keep to a rate.
///
/// `seconds`: the time of each packet, never falling. Empty where they last longer than
/// `longestCurve`: such times are none.
QVector<float> promiseCurve(const std::deque<PacketFeature>& packets,
                            const std::deque<double>& seconds);
