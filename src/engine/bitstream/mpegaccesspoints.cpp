// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpegaccesspoints.h"

#include "parametersets.h"

#include <functional>
#include <map>

namespace {

/// What stands behind one start code, which is its first byte, up to the next one.
using Section = PacketBytes;

using SectionTaker = std::function<void(const Section&)>;

/// Gives `take` those up to the first picture, the one that the packet is for, that one included.
void forEachUpTo(int pictureCode, const PacketBytes& packet, const SectionTaker& take) {
    std::int64_t begin = packet.behindNextPrefix(0);
    bool isPicture = false;
    while (begin < packet.size() && !isPicture) {
        const std::int64_t next = packet.behindNextPrefix(begin);
        const std::int64_t end = next < packet.size() ? next - 3 : next;
        const Section section = packet.part(begin, end).trimmed();
        isPicture = section.at(0) == pictureCode;
        take(section);
        begin = next;
    }
}

class Mpeg12AccessPoints : public CodecAccessPoints {
public:
    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

private:
    enum Code {
        Picture = 0x00,
        Sequence = 0xB3,
        Extension = 0xB5,
        SequenceEnd = 0xB7,
        Group = 0xB8
    };
    enum PictureType { Intra = 1, Bidirectional = 3 };

    ParameterSets sets{1 + 16}; ///< the sequence's and its extensions, which have four bits
};

bool endsSequence(const PacketBytes& packet, int code) {
    for (std::int64_t at = packet.behindNextPrefix(0); at < packet.size();
         at = packet.behindNextPrefix(at)) {
        if (packet.at(at) == code)
            return true;
    }
    return false;
}

PacketKind Mpeg12AccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    constexpr int closedBit = 8 + 25;
    constexpr int typeBit = 8 + 10;
    constexpr int extensionIdBit = 8;
    bool hasSequence = false;
    bool isClosed = false;
    int type = 0;
    sets.beginPacket();
    forEachUpTo(Picture, packet, [&](const Section& section) {
        const int code = section.at(0);
        if (code == Sequence)
            sets.addOfPacket(code << 4, section);
        if (code == Extension)
            sets.addOfPacket(code << 4 | section.bits(extensionIdBit, 4), section);
        hasSequence = hasSequence || code == Sequence;
        if (code == Group)
            isClosed = section.bit(closedBit) == 1;
        if (code == Picture)
            type = section.bits(typeBit, 3);
    });
    PacketKind kind;
    if (type == Intra && hasSequence && sets.areAllKnown())
        kind.access = isClosed ? PacketKind::Access::ClosedGop : PacketKind::Access::OpenGop;
    kind.isLeading = type == Bidirectional;
    kind.isDiscontinuity =
        sets.areChanged() || sets.areTooMany() || endsSequence(packet, SequenceEnd);
    return kind;
}

// One stream has a handful of objects and layers, and encoders say one or two things of themselves.
constexpr int mostMpeg4Sections = 64;

/// Numbers sections by their code and, as there can be several of user data, their place.
class SectionIds {
public:
    int next(int code) { return code << 16 | counts[code]++; }

private:
    std::map<int, int> counts;
};

class Mpeg4AccessPoints : public CodecAccessPoints {
public:
    explicit Mpeg4AccessPoints(const PacketBytes& header) {
        SectionIds ids;
        forEachUpTo(Picture, header, [&](const Section& section) {
            if (isParameter(section.at(0)))
                sets.addOfHeader(ids.next(section.at(0)), section);
        });
    }

    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

private:
    enum Code { SequenceEnd = 0xB1, Group = 0xB3, Picture = 0xB6 };
    enum PictureType { Intra = 0, Bidirectional = 2 };

    /// Layers, and what encoders say of themselves: decoders make up for what these do wrong.
    static bool isParameter(int code) {
        return code != Group && code != Picture && code != SequenceEnd;
    }

    ParameterSets sets{mostMpeg4Sections};
};

PacketKind Mpeg4AccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    // A picture that is not coded, standing where one would have been that an earlier packet holds.
    constexpr int largestPlaceholder = 8;
    constexpr int typeBit = 8;
    int type = -1;
    PacketKind kind;
    SectionIds ids;
    sets.beginPacket();
    forEachUpTo(Picture, packet, [&](const Section& section) {
        const int code = section.at(0);
        if (isParameter(code))
            sets.addOfPacket(ids.next(code), section);
        if (code == Picture && section.size() > 1)
            type = section.bits(typeBit, 2);
        kind.isDiscontinuity = kind.isDiscontinuity || code == SequenceEnd;
    });
    if (type == Intra && sets.areAllKnown())
        kind.access = PacketKind::Access::OpenGop;
    kind.isLeading = type == Bidirectional;
    kind.isDiscontinuity = kind.isDiscontinuity || sets.areChanged() || sets.areTooMany() ||
                           packet.size() <= largestPlaceholder;
    return kind;
}

} // namespace

std::unique_ptr<CodecAccessPoints> mpeg12AccessPoints() {
    return std::make_unique<Mpeg12AccessPoints>();
}

std::unique_ptr<CodecAccessPoints> mpeg4AccessPoints(const PacketBytes& header) {
    return std::make_unique<Mpeg4AccessPoints>(header);
}
