// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codecaccesspoints.h"

#include "nalunits.h"
#include "parametersets.h"

namespace {

/// What one NAL unit is to the packet that holds it.
struct UnitKind {
    enum class Role { Other, ParameterSet, ImpossibleSet, Slice, EndOfSequence };

    Role role = Role::Other;
    int setId = 0;     ///< of a parameter set
    PacketKind packet; ///< what a packet is whose first slice it is
};

UnitKind parameterSet(int type, int number, int count) {
    constexpr int idsPerType = 256; // the most that one type has
    const bool isPossible = number >= 0 && number < count;
    return {isPossible ? UnitKind::Role::ParameterSet : UnitKind::Role::ImpossibleSet,
            type * idsPerType + number,
            {}};
}

UnitKind slice(PacketKind::Access access, bool isLeading = false) {
    return {UnitKind::Role::Slice, 0, {access, isLeading, false}};
}

using UnitReader = UnitKind (*)(const PacketBytes& unit);

class NalAccessPoints : public CodecAccessPoints {
public:
    /// `mostSets`: how many parameter sets the codec allows.
    NalAccessPoints(const NalHeader& header, UnitReader read, int mostSets);

    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

private:
    int lengthBytes; ///< of a unit's length
    UnitReader read;
    ParameterSets sets;
};

NalAccessPoints::NalAccessPoints(const NalHeader& header, UnitReader read, int mostSets)
    : lengthBytes(header.lengthBytes)
    , read(read)
    , sets(mostSets) {
    if (header.isCut)
        sets.refuse();
    for (const PacketBytes& unit : header.units) {
        const UnitKind kind = read(unit);
        if (kind.role == UnitKind::Role::ImpossibleSet)
            sets.refuse();
        else if (kind.role == UnitKind::Role::ParameterSet)
            sets.addOfHeader(kind.setId, unit);
    }
}

PacketKind NalAccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    PacketKind kind;
    bool hasSlice = false;
    bool hasEnd = false;
    sets.beginPacket();
    forEachNalUnit(packet, lengthBytes, [&](const PacketBytes& bytes) {
        const UnitKind unit = read(bytes);
        if (unit.role == UnitKind::Role::ImpossibleSet)
            sets.refuse();
        else if (unit.role == UnitKind::Role::ParameterSet)
            sets.addOfPacket(unit.setId, bytes);
        else if (unit.role == UnitKind::Role::Slice && !hasSlice)
            kind = unit.packet;
        hasSlice = hasSlice || unit.role == UnitKind::Role::Slice;
        hasEnd = hasEnd || unit.role == UnitKind::Role::EndOfSequence;
        return !sets.areTooMany();
    });
    if (sets.areTooMany())
        return {PacketKind::Access::None, false, true};
    kind.isDiscontinuity = hasEnd;
    if (sets.areChanged() || !sets.areAllKnown())
        kind.access = PacketKind::Access::None;
    return kind;
}

/// ITU-T H.264, 7.4.1, Table 7-1; clauses behind types tell where the number of a set stands.
namespace h264 {

enum Type {
    FirstSlice = 1, // of pictures that are no refreshes, whole or in partitions
    LastSlice = 4,
    RefreshSlice = 5,
    SequenceSet = 7, // 7.3.2.1.1: behind profile, constraints and level
    PictureSet = 8,  // 7.3.2.2
    SequenceEnd = 10,
    SequenceSetExtension = 13, // 7.3.2.1.2
    SubsetSequenceSet = 15     // 7.3.2.1.3: as that of a sequence
};

constexpr int sequenceSets = 32; // 7.4.2.1.1: numbers from 0 to 31
constexpr int pictureSets = 256; // 7.4.2.2: from 0 to 255
constexpr int mostSets = 3 * sequenceSets + pictureSets;

UnitKind kindOf(const PacketBytes& unit) {
    constexpr int behindHeader = 8;
    constexpr int behindLevel = behindHeader + 3 * 8;
    const int type = unit.at(0) & 31; // 7.3.1: nal_unit_type
    switch (type) {
    case RefreshSlice:
        return slice(PacketKind::Access::ClosedGop);
    case SequenceSet:
    case SubsetSequenceSet:
        return parameterSet(type, unit.golomb(behindLevel), sequenceSets);
    case PictureSet:
        return parameterSet(type, unit.golomb(behindHeader), pictureSets);
    case SequenceSetExtension:
        return parameterSet(type, unit.golomb(behindHeader), sequenceSets);
    case SequenceEnd:
        return {UnitKind::Role::EndOfSequence, 0, {}};
    default:
        return type >= FirstSlice && type <= LastSlice ? slice(PacketKind::Access::None)
                                                       : UnitKind();
    }
}

} // namespace h264

/// ITU-T H.265, 7.4.2.2, Table 7-1.
namespace hevc {

enum Type {
    FirstLeading = 6,        // RADL_N
    LastLeading = 9,         // RASL_R
    RefreshWithLeading = 19, // IDR_W_RADL
    RefreshAlone = 20,       // IDR_N_LP
    CleanRandomAccess = 21,  // CRA_NUT
    LastSlice = 31,
    VideoSet = 32,    // 7.3.2.1
    SequenceSet = 33, // 7.3.2.2: its number stands far behind; more than one at a time is rare
    PictureSet = 34,  // 7.3.2.3
    SequenceEnd = 36,
    BitstreamEnd = 37
};

constexpr int videoSets = 16;   // 7.3.2.1: a number of four bits
constexpr int pictureSets = 64; // 7.4.3.3: from 0 to 63
constexpr int mostSets = videoSets + 1 + pictureSets;

UnitKind kindOf(const PacketBytes& unit) {
    // 7.3.1.2: a zero bit, nal_unit_type in six, nuh_layer_id in six, nuh_temporal_id_plus1 in
    // three.
    constexpr int behindHeader = 2 * 8;
    constexpr int hidesPriorBit = behindHeader + 1; // 7.3.6.1: no_output_of_prior_pics_flag
    const int type = unit.bits(1, 6);
    if (type == SequenceEnd || type == BitstreamEnd)
        return {UnitKind::Role::EndOfSequence, 0, {}};
    const bool isOfBase = unit.bits(7, 6) == 0;
    if (!isOfBase) // for other decoders
        return {};
    switch (type) {
    case VideoSet:
        return parameterSet(type, unit.bits(behindHeader, 4), videoSets);
    case SequenceSet:
        return parameterSet(type, 0, 1);
    case PictureSet:
        return parameterSet(type, unit.golomb(behindHeader), pictureSets);
    case RefreshWithLeading:
    case RefreshAlone:
        return slice(unit.bit(hidesPriorBit) == 0 ? PacketKind::Access::ClosedGop
                                                  : PacketKind::Access::None);
    case CleanRandomAccess:
        return slice(PacketKind::Access::OpenGop);
    default:
        return type <= LastSlice
                   ? slice(PacketKind::Access::None, type >= FirstLeading && type <= LastLeading)
                   : UnitKind();
    }
}

} // namespace hevc

} // namespace

std::unique_ptr<CodecAccessPoints> h264AccessPoints(const PacketBytes& header) {
    return std::make_unique<NalAccessPoints>(h264Header(header), h264::kindOf, h264::mostSets);
}

std::unique_ptr<CodecAccessPoints> hevcAccessPoints(const PacketBytes& header) {
    return std::make_unique<NalAccessPoints>(hevcHeader(header), hevc::kindOf, hevc::mostSets);
}
