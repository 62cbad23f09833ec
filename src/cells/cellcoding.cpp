// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellcoding.h"

#include "celltiles.h"

#include <zstd.h>

#include <algorithm>
#include <new>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int packingLevel = 3;

/// What a plane is packed as: the changes, tile by tile and each one's by their maps, as how many
/// places lie between each and the one before it (a place is a map of a tile), and the cells that
/// the tile has then.
struct PlaneStreams {
    Bytes gaps;    ///< up to `longGap`, which stands for that and more
    Bytes cells;   ///< of each change
    Bytes further; ///< places beyond `longGap`, as four bytes, the lowest first
};

constexpr std::uint8_t longGap = 255;
constexpr int streams = 3;
constexpr std::size_t lengthBytes = 4;
constexpr std::size_t headBytes = cellSteps.size() * streams * lengthBytes;

void append(std::uint32_t number, Bytes& bytes) {
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes.push_back(std::uint8_t(number >> shift));
}

std::uint32_t numberAt(const std::uint8_t* bytes) {
    return std::uint32_t(bytes[0]) | std::uint32_t(bytes[1]) << 8 | std::uint32_t(bytes[2]) << 16 |
           std::uint32_t(bytes[3]) << 24;
}

struct FreeContext {
    void operator()(ZSTD_CCtx* context) const { ZSTD_freeCCtx(context); }
    void operator()(ZSTD_DCtx* context) const { ZSTD_freeDCtx(context); }
};
using PackingContext = std::unique_ptr<ZSTD_CCtx, FreeContext>;
using UnpackingContext = std::unique_ptr<ZSTD_DCtx, FreeContext>;

/// The changes by tile; those of each tile keep their order.
std::vector<TileChange> byTile(const std::vector<TileChange>& changes, int tiles) {
    std::vector<int> begins(std::size_t(tiles) + 1, 0);
    for (const TileChange& change : changes)
        ++begins[std::size_t(change.tile) + 1];
    for (std::size_t tile = 1; tile < begins.size(); ++tile)
        begins[tile] += begins[tile - 1];
    std::vector<TileChange> sorted(changes.size());
    for (const TileChange& change : changes)
        sorted[std::size_t(begins[change.tile]++)] = change;
    return sorted;
}

PlaneStreams streamsOf(const std::vector<TileChange>& changes, int count, int tiles) {
    PlaneStreams plane;
    int next = 0;
    for (const TileChange& change : byTile(changes, tiles)) {
        const int place = int(change.tile) * count + change.map;
        const int gap = place - next;
        next = place + 1;
        plane.gaps.push_back(std::uint8_t(std::min<int>(gap, longGap)));
        plane.cells.push_back(change.cells);
        if (gap >= longGap)
            append(std::uint32_t(gap - longGap), plane.further);
    }
    return plane;
}

/// Appends `stream`, packed, to the block, and its length to the head in `place`.
void append(ZSTD_CCtx* context, const Bytes& stream, std::size_t place, Bytes& block) {
    if (stream.empty())
        return;
    const std::size_t before = block.size();
    block.resize(before + ZSTD_compressBound(stream.size()));
    const std::size_t packed =
        ZSTD_compressCCtx(context, block.data() + before, block.size() - before, stream.data(),
                          stream.size(), packingLevel);
    if (ZSTD_isError(packed) != 0)
        throw std::bad_alloc(); // nothing else can be missing
    block.resize(before + packed);
    for (std::size_t i = 0; i < lengthBytes; ++i)
        block[place * lengthBytes + i] = std::uint8_t(packed >> 8 * i);
}

/// Where one stream lies in a block; nothing where its head says otherwise than the block is long.
struct Piece {
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
};

Piece pieceAt(const Bytes& block, std::size_t place) {
    if (block.size() < headBytes)
        return {};
    std::size_t begin = headBytes;
    for (std::size_t i = 0; i < place; ++i)
        begin += numberAt(block.data() + i * lengthBytes);
    const std::size_t size = numberAt(block.data() + place * lengthBytes);
    if (begin > block.size() || size > block.size() - begin)
        return {};
    return {block.data() + begin, size};
}

/// Empty where it is nothing packed, or more than `most` bytes.
Bytes unpacked(ZSTD_DCtx* context, Piece piece, std::size_t most) {
    if (piece.size == 0)
        return {};
    const unsigned long long size = ZSTD_getFrameContentSize(piece.data, piece.size);
    if (size > most) // as are the answers that stand for errors
        return {};
    Bytes bytes(std::size_t(size), 0);
    const std::size_t found =
        ZSTD_decompressDCtx(context, bytes.data(), bytes.size(), piece.data, piece.size);
    return found == bytes.size() ? bytes : Bytes();
}

PlaneStreams unpackedStreams(const CellBlock& block, int step, std::size_t places) {
    const UnpackingContext context(ZSTD_createDCtx());
    if (!context)
        throw std::bad_alloc();
    const std::size_t first = std::size_t(step - 1) * streams;
    PlaneStreams plane;
    plane.gaps = unpacked(context.get(), pieceAt(block.bytes, first), places);
    plane.cells = unpacked(context.get(), pieceAt(block.bytes, first + 1), plane.gaps.size());
    plane.further = unpacked(context.get(), pieceAt(block.bytes, first + 2),
                             lengthBytes * (places / longGap + 1));
    return plane;
}

/// The changes as the streams have them, by tile, as far as they lie in the block.
std::vector<TileChange> changesOf(const PlaneStreams& plane, int count, const TileGrid& tiles) {
    std::vector<TileChange> changes;
    changes.reserve(plane.cells.size());
    std::size_t further = 0;
    std::int64_t tile = 0;
    std::int64_t map = -1;
    std::uint8_t cells = 0;
    std::uint8_t inside = tiles.count() > 0 ? tiles.cellsOf(0) : 0;
    for (std::size_t i = 0; i < plane.cells.size(); ++i) {
        map += 1 + plane.gaps[i];
        if (plane.gaps[i] == longGap && further + lengthBytes <= plane.further.size()) {
            map += numberAt(plane.further.data() + further);
            further += lengthBytes;
        }
        if (map >= count) {
            tile += map / count;
            map %= count;
            if (tile >= tiles.count())
                break;
            cells = 0;
            inside = tiles.cellsOf(int(tile));
        }
        const std::uint8_t now = plane.cells[i] & inside;
        const std::uint8_t flipped = now ^ cells;
        if (flipped != 0)
            changes.push_back({std::uint16_t(tile), std::uint8_t(map), now, flipped});
        cells = now;
    }
    return changes;
}

/// The changes by map; those of each map keep their order.
UnpackedPlane byMap(const std::vector<TileChange>& changes, int count) {
    UnpackedPlane plane;
    plane.begins.assign(std::size_t(count) + 2, 0);
    for (const TileChange& change : changes)
        ++plane.begins[std::size_t(change.map) + 2];
    for (std::size_t map = 2; map < plane.begins.size(); ++map)
        plane.begins[map] += plane.begins[map - 1];
    plane.changes.resize(changes.size());
    for (const TileChange& change : changes)
        plane.changes[std::size_t(plane.begins[std::size_t(change.map) + 1]++)] = change;
    plane.begins.pop_back();
    return plane;
}

} // namespace

CellBlock packedBlock(CellGrid grid, int count, const PlaneChanges& planes) {
    const PackingContext context(ZSTD_createCCtx());
    if (!context)
        throw std::bad_alloc();
    CellBlock block{grid, count, Bytes(headBytes, 0)};
    std::size_t place = 0;
    for (const auto& changes : planes) {
        const PlaneStreams plane = streamsOf(changes, count, TileGrid(grid).count());
        for (const Bytes* stream : {&plane.gaps, &plane.cells, &plane.further})
            append(context.get(), *stream, place++, block.bytes);
    }
    block.bytes.shrink_to_fit();
    return block;
}

UnpackedPlane unpackedPlane(const CellBlock& block, int step) {
    const TileGrid tiles(block.grid);
    const std::size_t places = std::size_t(tiles.count()) * std::size_t(block.count);
    const PlaneStreams plane = unpackedStreams(block, step, places);
    return byMap(changesOf(plane, block.count, tiles), block.count);
}
