// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "nalaccesspoints.h"

#include "nalunits.h"
#include "parametersets.h"

namespace {

constexpr int noSet = -1;
constexpr int impossibleSet = -2;
constexpr int idsPerType = 256; // the most that one type has

int setId(int type, int number, int count) {
    return number >= 0 && number < count ? type * idsPerType + number : impossibleSet;
}

class NalAccessPoints : public CodecAccessPoints {
public:
    /// `mostSets`: how many parameter sets the codec allows.
    NalAccessPoints(const NalHeader& header, int mostSets)
        : units(header.lengthBytes)
        , sets(mostSets) {}

    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

protected:
    void addHeader(const NalHeader& header);

    /// Which parameter set the unit is; `noSet` if it is none, `impossibleSet` if no stream can
    /// have it.
    virtual int setIdOf(const PacketBytes& unit) const = 0;
    virtual bool isEndOfSequence(const PacketBytes& unit) const = 0;
    virtual bool isSlice(const PacketBytes& unit) const = 0;

    /// What a picture is that begins with this slice.
    virtual PacketKind kindOfSlice(const PacketBytes& unit) const = 0;

private:
    void take(const PacketBytes& unit, PacketKind& kind);

    NalUnits units;
    ParameterSets sets;
    bool hasSlice = false; ///< the packet, so far
    bool hasEnd = false;
};

void NalAccessPoints::addHeader(const NalHeader& header) {
    if (header.isCut)
        sets.refuse();
    for (const PacketBytes& unit : header.units) {
        const int id = setIdOf(unit);
        if (id == impossibleSet)
            sets.refuse();
        else if (id != noSet)
            sets.addOfHeader(id, unit);
    }
}

PacketKind NalAccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    PacketKind kind;
    hasSlice = false;
    hasEnd = false;
    sets.beginPacket();
    units.forEach(packet, [this, &kind](const PacketBytes& unit) {
        take(unit, kind);
        return !sets.areTooMany();
    });
    if (sets.areTooMany())
        return {PacketKind::Access::None, false, true};
    kind.isDiscontinuity = hasEnd;
    const bool isAccessPoint = kind.access != PacketKind::Access::None;
    if (isAccessPoint && (sets.areChanged() || !sets.areAllKnown()))
        kind.access = PacketKind::Access::None;
    return kind;
}

void NalAccessPoints::take(const PacketBytes& unit, PacketKind& kind) {
    const int id = setIdOf(unit);
    if (id == impossibleSet)
        sets.refuse();
    else if (id != noSet)
        sets.addOfPacket(id, unit);
    hasEnd = hasEnd || isEndOfSequence(unit);
    if (isSlice(unit) && !hasSlice) {
        kind = kindOfSlice(unit);
        hasSlice = true;
    }
}

class H264AccessPoints : public NalAccessPoints {
public:
    explicit H264AccessPoints(const NalHeader& header)
        : NalAccessPoints(header, 3 * sequences + pictures) {
        addHeader(header);
    }

private:
    // How many sets there are of a kind (ITU-T H.264, 7.4.2).
    static constexpr int sequences = 32;
    static constexpr int pictures = 256;

    static int typeOf(const PacketBytes& unit) { return unit.at(0) & 31; }

    int setIdOf(const PacketBytes& unit) const override {
        constexpr int behindSequenceLevel = 4 * 8;
        constexpr int behindType = 8;
        const int type = typeOf(unit);
        switch (type) {
        case 7:  // sequence
        case 15: // subset of a sequence
            return setId(type, unit.golomb(behindSequenceLevel), sequences);
        case 8: // picture
            return setId(type, unit.golomb(behindType), pictures);
        case 13: // extension of a sequence
            return setId(type, unit.golomb(behindType), sequences);
        default:
            return noSet;
        }
    }

    bool isEndOfSequence(const PacketBytes& unit) const override { return typeOf(unit) == 10; }

    bool isSlice(const PacketBytes& unit) const override {
        return typeOf(unit) >= 1 && typeOf(unit) <= 5;
    }

    PacketKind kindOfSlice(const PacketBytes& unit) const override {
        const bool isRefresh = typeOf(unit) == 5;
        return {isRefresh ? PacketKind::Access::ClosedGop : PacketKind::Access::None, false, false};
    }
};

class HevcAccessPoints : public NalAccessPoints {
public:
    explicit HevcAccessPoints(const NalHeader& header)
        : NalAccessPoints(header, videos + 1 + pictures) {
        addHeader(header);
    }

private:
    // How many sets there are of a kind (ITU-T H.265, 7.4.3).
    static constexpr int videos = 16;
    static constexpr int pictures = 64;

    static int typeOf(const PacketBytes& unit) { return unit.at(0) >> 1 & 63; }

    /// Units of other layers are for other decoders.
    static bool isOfBase(const PacketBytes& unit) {
        return (unit.at(0) & 1) == 0 && unit.at(1) >> 3 == 0;
    }

    int setIdOf(const PacketBytes& unit) const override {
        constexpr int behindType = 2 * 8;
        const int type = isOfBase(unit) ? typeOf(unit) : noSet;
        switch (type) {
        case 32: // video
            return setId(type, unit.bits(behindType, 4), videos);
        case 33: // sequence, whose number stands far behind; more than one at a time is rare
            return setId(type, 0, 1);
        case 34: // picture
            return setId(type, unit.golomb(behindType), pictures);
        default:
            return noSet;
        }
    }

    bool isEndOfSequence(const PacketBytes& unit) const override {
        return typeOf(unit) == 36 || typeOf(unit) == 37;
    }

    bool isSlice(const PacketBytes& unit) const override {
        return isOfBase(unit) && typeOf(unit) < 32;
    }

    PacketKind kindOfSlice(const PacketBytes& unit) const override {
        constexpr int hidesWhatLiesBefore = 2 * 8 + 1;
        const int type = typeOf(unit);
        PacketKind kind;
        if ((type == 19 || type == 20) && unit.bit(hidesWhatLiesBefore) == 0)
            kind.access = PacketKind::Access::ClosedGop;
        if (type == 21)
            kind.access = PacketKind::Access::OpenGop;
        kind.isLeading = type >= 6 && type <= 9;
        return kind;
    }
};

} // namespace

std::unique_ptr<CodecAccessPoints> h264AccessPoints(const PacketBytes& header) {
    return std::make_unique<H264AccessPoints>(h264Header(header));
}

std::unique_ptr<CodecAccessPoints> hevcAccessPoints(const PacketBytes& header) {
    return std::make_unique<HevcAccessPoints>(hevcHeader(header));
}
