// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellcoding.h"

#include "celltiles.h"

#include <zstd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <numeric>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int packingLevel = 3;
constexpr std::size_t blockHeads = 64; // more than those that come with the streams' own blocks

/// What a plane is packed as: tile by tile, and by the maps in which the tile changes, how many
/// maps lie between each change and the one before it (or the block's begin), and the cells that it
/// has then; behind its last change, unless that is in the last map, `noMore`. Both are kept by
/// what the tile was before: without cells, with some, with all, since what follows differs so much
/// that each gets a code of its own.
constexpr std::uint8_t noMore = 255;
constexpr std::size_t kinds = 3;
constexpr std::size_t streams = 2 * kinds; // gaps of each kind, and then cells of each
using PlaneStreams = std::array<Bytes, streams>;

static_assert(mostBlockMaps <= noMore, "a gap is shorter");

constexpr std::size_t lengthBytes = 4;
constexpr std::size_t pieceCount = 1 + planeCount; // the pictures that maps serve, and the planes
constexpr std::size_t lengthsPlace = 4;            // behind the number of maps and of what kind
constexpr std::size_t headBytes = lengthsPlace + pieceCount * lengthBytes;
constexpr std::size_t planeHeadBytes = streams * lengthBytes;

std::size_t kindOf(std::uint8_t cells) {
    constexpr std::uint8_t all = 255;
    return cells == 0 ? 0 : cells == all ? 2 : 1;
}

void setNumber(std::size_t number, std::uint8_t* bytes) {
    for (std::size_t i = 0; i < lengthBytes; ++i)
        bytes[i] = std::uint8_t(number >> 8 * i);
}

/// Wide enough for sums of several.
std::uint64_t numberAt(const std::uint8_t* bytes) {
    return std::uint64_t(bytes[0]) | std::uint64_t(bytes[1]) << 8 | std::uint64_t(bytes[2]) << 16 |
           std::uint64_t(bytes[3]) << 24;
}

struct FreeContext {
    void operator()(ZSTD_CCtx* context) const { ZSTD_freeCCtx(context); }
    void operator()(ZSTD_DCtx* context) const { ZSTD_freeDCtx(context); }
};
using PackingContext = std::unique_ptr<ZSTD_CCtx, FreeContext>;
using UnpackingContext = std::unique_ptr<ZSTD_DCtx, FreeContext>;

/// The changes by tile; those of each tile keep their order. `begins` gets where those of each tile
/// begin, and their end.
std::vector<TileChange> byTile(const std::vector<TileChange>& changes, int tiles,
                               std::vector<std::size_t>& begins) {
    begins.assign(std::size_t(tiles) + 1, 0);
    for (const TileChange& change : changes)
        ++begins[std::size_t(change.tile) + 1];
    for (std::size_t tile = 1; tile < begins.size(); ++tile)
        begins[tile] += begins[tile - 1];
    std::vector<std::size_t> next = begins;
    std::vector<TileChange> sorted(changes.size());
    for (const TileChange& change : changes)
        sorted[next[change.tile]++] = change;
    return sorted;
}

PlaneStreams streamsOf(const std::vector<TileChange>& changes, int count, int tiles) {
    PlaneStreams plane;
    std::vector<std::size_t> begins;
    const std::vector<TileChange> sorted = byTile(changes, tiles, begins);
    for (std::size_t tile = 0; tile < std::size_t(tiles); ++tile) {
        std::size_t kind = 0;
        int next = 0;
        for (std::size_t i = begins[tile]; i < begins[tile + 1]; ++i) {
            plane[kind].push_back(std::uint8_t(sorted[i].map - next));
            plane[kinds + kind].push_back(sorted[i].cells);
            kind = kindOf(sorted[i].cells);
            next = sorted[i].map + 1;
        }
        if (next < count)
            plane[kind].push_back(noMore);
    }
    return plane;
}

std::size_t sizeOf(const PlaneStreams& plane) {
    std::size_t size = 0;
    for (const Bytes& stream : plane)
        size += stream.size();
    return size;
}

/// Appends `plane`, packed: one frame, in which each stream begins a block of its own.
void append(ZSTD_CCtx* context, const PlaneStreams& plane, Bytes& bytes) {
    const std::size_t size = sizeOf(plane);
    const std::size_t head = bytes.size();
    bytes.resize(head + planeHeadBytes + ZSTD_compressBound(size) + blockHeads);
    ZSTD_CCtx_reset(context, ZSTD_reset_session_and_parameters);
    ZSTD_CCtx_setParameter(context, ZSTD_c_compressionLevel, packingLevel);
    ZSTD_CCtx_setPledgedSrcSize(context, size);
    ZSTD_outBuffer output{bytes.data(), bytes.size(), head + planeHeadBytes};
    for (std::size_t i = 0; i < streams; ++i) {
        setNumber(plane[i].size(), bytes.data() + head + i * lengthBytes);
        const bool isLast = i + 1 == streams;
        if (plane[i].empty() && !isLast)
            continue;
        ZSTD_inBuffer input{plane[i].data(), plane[i].size(), 0};
        if (ZSTD_compressStream2(context, &output, &input, isLast ? ZSTD_e_end : ZSTD_e_flush) != 0)
            throw std::bad_alloc(); // for the output there is room
    }
    bytes.resize(output.pos);
}

/// Bytes of a block.
struct Piece {
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
};

/// One of those that the block's head lists; empty where it says otherwise than the block is long.
Piece pieceIn(const Bytes& block, std::size_t piece) {
    if (block.size() < headBytes)
        return {};
    const std::uint8_t* lengths = block.data() + lengthsPlace;
    std::uint64_t begin = headBytes;
    for (std::size_t i = 0; i < piece; ++i)
        begin += numberAt(lengths + i * lengthBytes);
    const std::uint64_t size = numberAt(lengths + piece * lengthBytes);
    if (begin > block.size() || size > block.size() - begin)
        return {};
    return {block.data() + begin, std::size_t(size)};
}

/// How many maps are packed, each of which serves a picture or more.
int mapsIn(const CellBlock& block) {
    const int most = std::clamp(block.count, 1, mostBlockMaps);
    return block.bytes.empty() ? 1 : std::clamp(int(block.bytes[0]), 1, most);
}

/// What a frame holds; empty where that is not `size` bytes.
Bytes unpacked(Piece frame, std::size_t size) {
    if (ZSTD_getFrameContentSize(frame.data, frame.size) != size)
        return {};
    const UnpackingContext context(ZSTD_createDCtx());
    if (!context)
        throw std::bad_alloc();
    Bytes bytes(size, 0);
    const std::size_t found =
        ZSTD_decompressDCtx(context.get(), bytes.data(), size, frame.data, frame.size);
    return found == size ? bytes : Bytes();
}

/// Hands out the bytes of each stream.
class StreamReader {
public:
    /// At most `most` bytes are unpacked.
    StreamReader(Piece plane, std::size_t most) {
        if (plane.size < planeHeadBytes)
            return;
        std::uint64_t size = 0;
        for (std::size_t i = 0; i < streams; ++i) {
            at[i] = std::size_t(size);
            size += numberAt(plane.data + i * lengthBytes);
            end[i] = std::size_t(size);
        }
        if (size <= most)
            bytes = unpacked({plane.data + planeHeadBytes, plane.size - planeHeadBytes}, size);
    }

    bool isEmpty() const { return bytes.empty(); }
    std::size_t size() const { return bytes.size(); }

    /// The next byte of a stream; false behind its last one.
    bool next(std::size_t stream, std::uint8_t& byte) {
        if (at[stream] == end[stream])
            return false;
        byte = bytes[at[stream]++];
        return true;
    }

private:
    Bytes bytes;
    std::array<std::size_t, streams> at{};
    std::array<std::size_t, streams> end{};
};

/// Reads the changes of a plane, by tile, as far as they lie in the block.
class ChangesReader {
public:
    ChangesReader(StreamReader& streams, int count)
        : streams(streams)
        , count(count) {}

    /// Appends those of a tile, whose cells in the grid are `inside`. False where there can be none
    /// behind them.
    bool append(int tile, std::uint8_t inside, std::vector<TileChange>& changes) {
        std::uint8_t cells = 0;
        for (int next = 0; next < count; ++next) {
            std::uint8_t gap = 0;
            std::uint8_t now = 0;
            const std::size_t kind = kindOf(cells);
            if (!streams.next(kind, gap))
                return false;
            if (gap == noMore)
                return true;
            next += gap;
            if (next >= count || !streams.next(kinds + kind, now))
                return false;
            const auto flipped = std::uint8_t((now ^ cells) & inside);
            if (flipped != 0)
                appendChange(changes, tile, next, std::uint8_t(now & inside), flipped);
            cells = now;
        }
        return true;
    }

private:
    /// Field by field: one that is made first and then copied is read before its bytes are written,
    /// which took more time than all the rest.
    static void appendChange(std::vector<TileChange>& changes, int tile, int map,
                             std::uint8_t cells, std::uint8_t flipped) {
        TileChange& change = changes.emplace_back();
        change.tile = std::uint16_t(tile);
        change.map = std::uint8_t(map);
        change.cells = cells;
        change.flipped = flipped;
    }

    StreamReader& streams;
    int count;
};

std::vector<TileChange> changesOf(StreamReader& streams, int count, const TileGrid& tiles) {
    std::vector<TileChange> changes;
    changes.reserve(streams.size() / 2);
    ChangesReader reader(streams, count);
    for (int tile = 0; tile < tiles.count(); ++tile) {
        if (!reader.append(tile, tiles.cellsOf(tile), changes))
            break;
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

/// Numbers of seven bits, the lowest first; the highest bit of a byte tells that more follow.
void appendRuns(const std::vector<int>& pictures, Bytes& bytes) {
    for (const int number : pictures) {
        auto rest = unsigned(number);
        for (; rest >= 128; rest >>= 7)
            bytes.push_back(std::uint8_t(rest | 128));
        bytes.push_back(std::uint8_t(rest));
    }
}

/// The next of them; 1 where there is none.
int nextRun(const Bytes& bytes, std::size_t& at) {
    unsigned number = 0;
    for (unsigned shift = 0; at < bytes.size() && shift < 28; shift += 7) {
        number |= unsigned(bytes[at] & 127) << shift;
        if (bytes[at++] < 128)
            return std::max(int(number), 1);
    }
    return 1;
}

} // namespace

CellBlock packedBlock(const BlockMaps& maps) {
    const PackingContext context(ZSTD_createCCtx());
    if (!context)
        throw std::bad_alloc();
    CellBlock block{maps.grid, std::accumulate(maps.pictures.begin(), maps.pictures.end(), 0),
                    Bytes(headBytes, 0)};
    Bytes& bytes = block.bytes;
    bytes[0] = std::uint8_t(maps.pictures.size());
    bytes[1] = maps.isFirstCarried ? 1 : 0;
    appendRuns(maps.pictures, bytes);
    setNumber(bytes.size() - headBytes, bytes.data() + lengthsPlace);
    const int tiles = TileGrid(maps.grid).count();
    for (std::size_t plane = 0; plane < planeCount; ++plane) {
        const std::size_t before = bytes.size();
        if (!maps.changes[plane].empty())
            append(context.get(), streamsOf(maps.changes[plane], int(maps.pictures.size()), tiles),
                   bytes);
        setNumber(bytes.size() - before, bytes.data() + lengthsPlace + (plane + 1) * lengthBytes);
    }
    bytes.shrink_to_fit();
    return block;
}

UnpackedRuns unpackedRuns(const CellBlock& block) {
    const Piece piece = pieceIn(block.bytes, 0);
    const Bytes bytes(piece.data, piece.data + piece.size);
    UnpackedRuns runs;
    runs.isFirstCarried = block.bytes.size() > 1 && block.bytes[1] != 0;
    std::size_t at = 0;
    int left = block.count;
    for (int map = 0; left > 0 && map < mapsIn(block); ++map) {
        runs.pictures.push_back(std::min(nextRun(bytes, at), left));
        left -= runs.pictures.back();
    }
    runs.pictures.back() += left;
    return runs;
}

UnpackedPlane unpackedPlane(const CellBlock& block, int plane) {
    const TileGrid tiles(block.grid);
    const int count = mapsIn(block);
    // Of each map a gap and cells, and of each tile an end.
    const std::size_t most = std::size_t(tiles.count()) * (2 * std::size_t(count) + 1);
    StreamReader streams(pieceIn(block.bytes, std::size_t(plane) + 1), most);
    if (streams.isEmpty())
        return {{}, std::vector<int>(std::size_t(count) + 1, 0)};
    return byMap(changesOf(streams, count, tiles), count);
}
