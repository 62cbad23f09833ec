// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codecaccesspoints.h"

#include "parametersets.h"

#include <map>

namespace {

/// What stands behind one start code, which is its first byte, up to the next one.
using Section = PacketBytes;

/// Gives `take` those up to the first picture, the one that the packet is for, that one included.
template<typename SectionTaker>
void forEachUpTo(int pictureCode, const PacketBytes& packet, const SectionTaker& take) {
    packet.forEachBehindPrefix([&](const Section& section) {
        take(section);
        return section.at(0) != pictureCode;
    });
}

/// Start codes of ISO/IEC 13818-2 (6.2.1, Table 6-1) and ISO/IEC 11172-2, and what stands behind.
namespace mpeg12 {

enum Code {
    Picture = 0x00,
    SequenceHeader = 0xB3,
    Extension = 0xB5,
    SequenceEnd = 0xB7,
    GroupOfPictures = 0xB8
};

enum PictureType { Intra = 1, Bidirectional = 3 }; // 6.3.9, Table 6-12

constexpr int extensionIdBit = 8;      // of four bits (6.2.2.2.1)
constexpr int closedGopBit = 8 + 25;   // behind time_code (6.2.2.6)
constexpr int pictureTypeBit = 8 + 10; // of three bits, behind temporal_reference (6.2.3)

bool endsSequence(const PacketBytes& packet) {
    bool hasEnd = false;
    packet.forEachBehindPrefix([&hasEnd](const Section& section) {
        hasEnd = section.at(0) == SequenceEnd;
        return !hasEnd;
    });
    return hasEnd;
}

class AccessPoints : public CodecAccessPoints {
public:
    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

private:
    ParameterSets sets{1 + 16}; ///< the sequence header and its extensions
};

PacketKind AccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    bool hasSequence = false;
    bool isClosed = false;
    int type = 0;
    sets.beginPacket();
    forEachUpTo(Picture, packet, [&](const Section& section) {
        const int code = section.at(0);
        if (code == SequenceHeader)
            sets.addOfPacket(code << 4, section);
        if (code == Extension)
            sets.addOfPacket(code << 4 | section.bits(extensionIdBit, 4), section);
        hasSequence = hasSequence || code == SequenceHeader;
        if (code == GroupOfPictures)
            isClosed = section.bit(closedGopBit) == 1;
        if (code == Picture)
            type = section.bits(pictureTypeBit, 3);
    });
    PacketKind kind;
    if (type == Intra && hasSequence && sets.areAllKnown())
        kind.access = isClosed ? PacketKind::Access::ClosedGop : PacketKind::Access::OpenGop;
    kind.isLeading = type == Bidirectional;
    kind.isDiscontinuity = sets.areChanged() || sets.areTooMany() || endsSequence(packet);
    return kind;
}

} // namespace mpeg12

/// Start codes of ISO/IEC 14496-2 (6.2.1, Table 6-3), and what stands behind.
namespace mpeg4 {

enum Code { SequenceEnd = 0xB1, GroupOfVop = 0xB3, Vop = 0xB6 };
enum VopType { Intra = 0, Bidirectional = 2 }; // 6.3.5, Table 6-20

constexpr int vopTypeBit = 8; // of two bits (6.2.5)

// One stream has a handful of objects and layers, and encoders say one or two things of themselves.
constexpr int mostSections = 64;

/// Layers, and what encoders say of themselves (user_data): decoders make up for what these do
/// wrong.
bool isParameter(int code) {
    return code != GroupOfVop && code != Vop && code != SequenceEnd;
}

/// Numbers sections by their code and, as there can be several of user data, their place.
class SectionIds {
public:
    int next(int code) { return code << 16 | counts[code]++; }

private:
    std::map<int, int> counts;
};

class AccessPoints : public CodecAccessPoints {
public:
    explicit AccessPoints(const PacketBytes& header) {
        SectionIds ids;
        forEachUpTo(Vop, header, [&](const Section& section) {
            if (isParameter(section.at(0)))
                sets.addOfHeader(ids.next(section.at(0)), section);
        });
    }

    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

private:
    ParameterSets sets{mostSections};
};

PacketKind AccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    // A VOP that is not coded, standing where one would have been that an earlier packet holds.
    constexpr int largestPlaceholder = 8;
    int type = -1;
    PacketKind kind;
    SectionIds ids;
    sets.beginPacket();
    forEachUpTo(Vop, packet, [&](const Section& section) {
        const int code = section.at(0);
        if (isParameter(code))
            sets.addOfPacket(ids.next(code), section);
        if (code == Vop && section.size() > 1)
            type = section.bits(vopTypeBit, 2);
        kind.isDiscontinuity = kind.isDiscontinuity || code == SequenceEnd;
    });
    if (type == Intra && sets.areAllKnown())
        kind.access = PacketKind::Access::OpenGop;
    kind.isLeading = type == Bidirectional;
    kind.isDiscontinuity = kind.isDiscontinuity || sets.areChanged() || sets.areTooMany() ||
                           packet.size() <= largestPlaceholder;
    return kind;
}

} // namespace mpeg4

} // namespace

std::unique_ptr<CodecAccessPoints> mpeg12AccessPoints(const PacketBytes& /*header*/) {
    return std::make_unique<mpeg12::AccessPoints>();
}

std::unique_ptr<CodecAccessPoints> mpeg4AccessPoints(const PacketBytes& header) {
    return std::make_unique<mpeg4::AccessPoints>(header);
}
