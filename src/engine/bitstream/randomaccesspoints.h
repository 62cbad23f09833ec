// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetkind.h"

#include <QtGlobal>

#include <memory>

class CodecAccessPoints;
struct AVCodecParameters;
struct AVPacket;

/// Finds the packets of a stream at which a decoder can begin that has only seen the stream's first
/// packet, and give what one gives that has never stopped.
///
/// The container's word is not enough: the packets are looked into. They may hold anything.
class RandomAccessPoints {
public:
    /// `parameters` are the container's. `codecTable` says whose random access points are known.
    explicit RandomAccessPoints(const AVCodecParameters& parameters);
    ~RandomAccessPoints();

    /// Every packet of the stream in order, from its first on.
    PacketKind next(const AVPacket& packet);

private:
    std::unique_ptr<CodecAccessPoints> accessPoints; ///< null where the codec has none
    qint64 count = 0;                                ///< of packets so far
    bool isBehindOpen = false; ///< nothing but leading packets since the open GOP that began last
};
