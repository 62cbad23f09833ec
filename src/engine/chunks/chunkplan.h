// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

struct AVCodecParameters;

/// How a recording is decoded in chunks side by side.
struct ChunkPlan {
    int workers = 0;        ///< that decode; 0: it is not decoded so
    int fewestPackets = 1;  ///< of a chunk, from a closed GOP to another
    int fewestOpen = 1;     ///< to an open one where leading packets are decoded twice
    qint64 enoughBytes = 0; ///< of a chunk's packets, however few these are
    int mostPackets = 1;    ///< of a chunk
    qint64 mostBytes = 0;   ///< of its packets
    qint64 bytesInHand = 0; ///< of all packets that are read and not yet done with
    int cellsInHand = 0;    ///< pictures that are reduced to cells and not yet handed out
};

/// What is exact and pays for a stream of these parameters with up to `threads` threads.
ChunkPlan planChunks(const AVCodecParameters& parameters, int threads);
