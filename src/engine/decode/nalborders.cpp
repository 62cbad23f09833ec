// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "nalborders.h"

#include "nalunits.h"
#include "parametersets.h"

namespace {

constexpr int noSet = -1;
constexpr int idsPerType = 1 << 22; // more than an Exp-Golomb number can be here

class NalBorders : public CodecBorders {
public:
    explicit NalBorders(const NalHeader& header)
        : units(header.lengthBytes) {}

    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

protected:
    void addHeader(const NalHeader& header);

    /// Which parameter set the unit is; `noSet` if it is none.
    virtual int setIdOf(const PacketBytes& unit) const = 0;
    virtual bool isEndOfSequence(const PacketBytes& unit) const = 0;
    virtual bool isSlice(const PacketBytes& unit) const = 0;

    /// What a picture is that begins with this slice.
    virtual PacketKind kindOfSlice(const PacketBytes& unit) const = 0;

private:
    NalUnits units;
    ParameterSets sets;
};

void NalBorders::addHeader(const NalHeader& header) {
    for (const PacketBytes& unit : header.units) {
        const int id = setIdOf(unit);
        if (id != noSet)
            sets.addOfHeader(id, unit);
    }
}

PacketKind NalBorders::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    PacketKind kind;
    bool hasSlice = false;
    bool hasEnd = false;
    sets.beginPacket();
    for (const PacketBytes& unit : units.of(packet)) {
        const int id = setIdOf(unit);
        if (id != noSet)
            sets.addOfPacket(id, unit);
        hasEnd = hasEnd || isEndOfSequence(unit);
        if (isSlice(unit) && !hasSlice) {
            kind = kindOfSlice(unit);
            hasSlice = true;
        }
    }
    kind.isSuspect = hasEnd;
    if (sets.areChanged() || !sets.areAllKnown())
        kind.border = PacketKind::Border::None;
    return kind;
}

class H264Borders : public NalBorders {
public:
    explicit H264Borders(const NalHeader& header)
        : NalBorders(header) {
        addHeader(header);
    }

private:
    static int typeOf(const PacketBytes& unit) { return unit.at(0) & 31; }

    int setIdOf(const PacketBytes& unit) const override {
        constexpr int behindSequenceLevel = 4 * 8;
        constexpr int behindType = 8;
        const int type = typeOf(unit);
        switch (type) {
        case 7:  // sequence
        case 15: // subset of a sequence
            return type * idsPerType + unit.golomb(behindSequenceLevel);
        case 8:  // picture
        case 13: // extension of a sequence
            return type * idsPerType + unit.golomb(behindType);
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
        return {isRefresh ? PacketKind::Border::Closed : PacketKind::Border::None, false, false};
    }
};

class HevcBorders : public NalBorders {
public:
    explicit HevcBorders(const NalHeader& header)
        : NalBorders(header) {
        addHeader(header);
    }

private:
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
            return type * idsPerType + unit.bits(behindType, 4);
        case 33: // sequence, whose number stands far behind; more than one at a time is rare
            return type * idsPerType;
        case 34: // picture
            return type * idsPerType + unit.golomb(behindType);
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
            kind.border = PacketKind::Border::Closed;
        if (type == 21)
            kind.border = PacketKind::Border::Open;
        kind.isLeading = type >= 6 && type <= 9;
        return kind;
    }
};

} // namespace

std::unique_ptr<CodecBorders> h264Borders(const PacketBytes& header) {
    return std::make_unique<H264Borders>(h264Header(header));
}

std::unique_ptr<CodecBorders> hevcBorders(const PacketBytes& header) {
    return std::make_unique<HevcBorders>(hevcHeader(header));
}
