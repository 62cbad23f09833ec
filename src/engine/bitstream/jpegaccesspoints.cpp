// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jpegaccesspoints.h"

#include <set>

namespace {

enum Marker { HuffmanTables = 0xC4, Scan = 0xDA, QuantizationTables = 0xDB };

using Tables = std::set<int>;

/// Of one segment, behind its length.
void addTables(Tables& tables, int marker, const PacketBytes& segment) {
    constexpr int codeLengths = 16;
    constexpr int values = 64;
    std::int64_t at = 0;
    while (at < segment.size()) {
        const int id = segment.at(at);
        if (marker == QuantizationTables) {
            tables.insert(marker << 8 | (id & 15));
            at += 1 + values * (id >> 4 ? 2 : 1);
            continue;
        }
        tables.insert(marker << 8 | id);
        int codes = 0;
        for (int i = 1; i <= codeLengths; ++i)
            codes += segment.at(at + i);
        at += 1 + codeLengths + codes;
    }
}

/// Up to the first scan; pictures of two fields bring the same for both.
Tables tablesOf(const PacketBytes& packet) {
    Tables tables;
    std::int64_t at = 2;
    while (at + 4 <= packet.size() && packet.at(at) == 0xFF && packet.at(at + 1) != Scan) {
        const int marker = packet.at(at + 1);
        if (marker == 0xFF) { // fills up
            ++at;
            continue;
        }
        const std::int64_t end = at + 2 + packet.bits((at + 2) * 8, 16);
        if (marker == HuffmanTables || marker == QuantizationTables)
            addTables(tables, marker, packet.part(at + 4, end));
        at = end;
    }
    return tables;
}

class JpegAccessPoints : public CodecAccessPoints {
public:
    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

private:
    Tables known; ///< that a packet so far has brought
};

PacketKind JpegAccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    const Tables tables = tablesOf(packet);
    known.insert(tables.begin(), tables.end());
    const bool isBegin = packet.at(0) == 0xFF && packet.at(1) == 0xD8;
    PacketKind kind;
    if (isBegin && !tables.empty() && tables == known)
        kind.access = PacketKind::Access::ClosedGop;
    return kind;
}

} // namespace

std::unique_ptr<CodecAccessPoints> jpegAccessPoints() {
    return std::make_unique<JpegAccessPoints>();
}
