// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "h264slices.h"

#include "bitcursor.h"
#include "nalunits.h"

namespace {

// Clauses and names are those of ITU-T H.264.

enum UnitType { FirstSlice = 1, PartitionA = 2, Refresh = 5, SequenceSet = 7, PictureSet = 8 };
enum SliceType { Forward = 0, Both = 1, Intra = 2, ForwardSwitch = 3, IntraSwitch = 4 };

constexpr std::size_t mostHeaderBytes = 160;
constexpr int mostReferences = 32; // 7.4.3
constexpr int mostCommands = 66;   // more than a list of references can be changed by

int unitType(const PacketBytes& unit) {
    return unit.at(0) & 31;
}

/// Reads the header of one slice up to its quantiser (7.3.3).
class SliceHeader {
public:
    SliceHeader(BitCursor& bits, int unitType, int importance, int type,
                const H264Sequence& sequence, const H264Picture& picture)
        : bits(bits)
        , isRefresh(unitType == Refresh)
        , isReference(importance > 0)
        , type(type)
        , sequence(sequence)
        , picture(picture) {}

    std::optional<int> quantiser() {
        readFrame();
        readReferences();
        if (isWeighted())
            skipWeights();
        if (isReference)
            skipMarking();
        if (picture.isArithmetic && type != Intra && type != IntraSwitch)
            bits.golomb();
        const std::int64_t found = picture.quantiser + bits.signedGolomb();
        // 7.4.2.2: with more bits for each sample it can be negative.
        const bool isPossible = bits.isSound() && found >= -36 && found <= 51;
        return isPossible ? std::make_optional(int(found)) : std::nullopt;
    }

private:
    bool hasList(int list) const {
        return list == 0 ? type != Intra && type != IntraSwitch : type == Both;
    }

    bool isWeighted() const {
        return (picture.isWeighted && (type == Forward || type == ForwardSwitch)) ||
               (picture.weightingOfBoth == 1 && type == Both);
    }

    void readFrame() {
        if (sequence.areColoursSeparate)
            bits.skip(2);
        bits.skip(sequence.frameNumberBits);
        bool isField = false;
        if (!sequence.areFramesAlone) {
            isField = bits.bit() == 1;
            bits.skip(isField ? 1 : 0);
        }
        if (isRefresh)
            bits.golomb();
        readOrder(picture.hasOrderOfBottom && !isField);
        if (picture.hasRedundant)
            bits.golomb();
    }

    void readOrder(bool isOfBoth) {
        if (sequence.orderType == 0) {
            bits.skip(sequence.orderBits);
            if (isOfBoth)
                bits.signedGolomb();
        }
        if (sequence.orderType == 1 && !sequence.isOrderAlwaysZero) {
            bits.signedGolomb();
            if (isOfBoth)
                bits.signedGolomb();
        }
    }

    void readReferences() {
        if (type == Both)
            bits.skip(1);
        for (int list = 0; list < 2; ++list)
            counts[list] = picture.references[list];
        if (hasList(0) && bits.bit() == 1) {
            for (int list = 0; list < 2 && hasList(list); ++list)
                counts[list] = int(bits.golomb()) + 1;
        }
        for (int list = 0; list < 2; ++list) {
            if (hasList(list) && bits.bit() == 1)
                skipChanges();
        }
    }

    /// 7.3.3.1: commands up to 3, which ends them.
    void skipChanges() {
        for (int i = 0; i < mostCommands && bits.isSound() && bits.golomb() != 3; ++i)
            bits.golomb();
    }

    /// 7.3.3.2.
    void skipWeights() {
        bits.golomb();
        if (!sequence.isGrey)
            bits.golomb();
        for (int list = 0; list < 2 && hasList(list); ++list) {
            for (int i = 0; i < counts[list] && i < mostReferences && bits.isSound(); ++i) {
                skipPair(1);
                if (!sequence.isGrey)
                    skipPair(2);
            }
        }
    }

    void skipPair(int samples) {
        if (bits.bit() == 0)
            return;
        for (int i = 0; i < 2 * samples; ++i)
            bits.signedGolomb();
    }

    /// 7.3.3.3.
    void skipMarking() {
        if (isRefresh)
            return bits.skip(2);
        if (bits.bit() == 0)
            return;
        for (int i = 0; i < mostCommands && bits.isSound(); ++i) {
            const std::int64_t command = bits.golomb();
            if (command == 0)
                return;
            const int numbers = command == 5 ? 0 : command == 3 ? 2 : 1;
            for (int number = 0; number < numbers; ++number)
                bits.golomb();
        }
    }

    BitCursor& bits;
    bool isRefresh;
    bool isReference;
    int type;
    const H264Sequence& sequence;
    const H264Picture& picture;
    int counts[2] = {0, 0}; ///< of references, of each list
};

} // namespace

H264Slices::H264Slices(const PacketBytes& header) {
    const NalHeader parsed = h264Header(header);
    lengthBytes = parsed.lengthBytes;
    for (const PacketBytes& unit : parsed.units)
        takeSet(unit);
}

void H264Slices::takeSet(const PacketBytes& unit) {
    constexpr int mostSequences = 32; // 7.4.2.1.1
    constexpr int mostPictures = 256; // 7.4.2.2
    if (unitType(unit) == SequenceSet) {
        const auto set = readH264Sequence(unit);
        if (set && set->id >= 0 && set->id < mostSequences)
            sequences[set->id] = *set;
    }
    if (unitType(unit) == PictureSet) {
        const auto set = readH264Picture(unit);
        if (set && set->id >= 0 && set->id < mostPictures)
            pictures[set->id] = *set;
    }
}

CodedPicture H264Slices::of(const PacketBytes& packet, bool /*isKey*/) {
    CodedPicture found;
    forEachNalUnit(packet, lengthBytes, [&](const PacketBytes& unit) {
        const int type = unitType(unit);
        const bool isSlice = type == FirstSlice || type == PartitionA || type == Refresh;
        if (isSlice)
            found = slice(unit);
        else
            takeSet(unit);
        return !isSlice;
    });
    return found;
}

CodedPicture H264Slices::slice(const PacketBytes& unit) const {
    const std::vector<std::uint8_t> bytes = unescaped(unit, mostHeaderBytes);
    const PacketBytes header(bytes.data(), std::int64_t(bytes.size()));
    BitCursor bits(header, 8);
    bits.golomb(); // first_mb_in_slice
    const int type = int(bits.golomb() % 5);
    const int importance = header.at(0) >> 5 & 3;
    CodedPicture found;
    found.kind = 1 + type * 4 + importance;
    const auto picture = pictures.find(int(bits.golomb()));
    if (picture == pictures.end())
        return found;
    const auto sequence = sequences.find(picture->second.sequence);
    if (sequence == sequences.end())
        return found;
    found.quantiser =
        SliceHeader(bits, unitType(unit), importance, type, sequence->second, picture->second)
            .quantiser();
    return found;
}
