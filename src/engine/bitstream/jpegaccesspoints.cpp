// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codecaccesspoints.h"

#include <set>

namespace {

// The second byte of a marker (ITU-T T.81, B.1.1.3, Table B.1).
enum Marker {
    HuffmanTables = 0xC4,     // DHT
    StartOfImage = 0xD8,      // SOI
    StartOfScan = 0xDA,       // SOS
    QuantizationTables = 0xDB // DQT
};

constexpr int markerPrefix = 0xFF; // its first byte; more of them fill up before it (B.1.1.2)

using Tables = std::set<int>;

/// Of one segment, behind its length: class and number of a table in one byte, then the table.
void addTables(Tables& tables, int marker, const PacketBytes& segment) {
    constexpr int elements = 64;    // of 8 or 16 bits (B.2.4.1)
    constexpr int codeLengths = 16; // how many codes there are of each (B.2.4.2)
    std::int64_t at = 0;
    while (at < segment.size()) {
        const int id = segment.at(at);
        if (marker == QuantizationTables) {
            tables.insert(marker << 8 | (id & 15));
            at += 1 + elements * (id >> 4 ? 2 : 1);
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
    while (at + 4 <= packet.size() && packet.at(at) == markerPrefix &&
           packet.at(at + 1) != StartOfScan) {
        const int marker = packet.at(at + 1);
        if (marker == markerPrefix) {
            ++at;
            continue;
        }
        // A segment's length counts its own two bytes (B.1.1.4).
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
    const bool isBegin = packet.at(0) == markerPrefix && packet.at(1) == StartOfImage;
    PacketKind kind;
    if (isBegin && !tables.empty() && tables == known)
        kind.access = PacketKind::Access::ClosedGop;
    return kind;
}

} // namespace

std::unique_ptr<CodecAccessPoints> jpegAccessPoints(const PacketBytes& /*header*/) {
    return std::make_unique<JpegAccessPoints>();
}
