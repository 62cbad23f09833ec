// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"

/// Reads bits that may hold anything, one number after the other. Beyond the end all are 0.
class BitCursor {
public:
    /// `bytes` must outlive the cursor; it begins at bit `place`.
    explicit BitCursor(const PacketBytes& bytes, std::int64_t place = 0)
        : bytes(bytes)
        , place(place) {}

    int bit() { return bytes.bit(place++); }
    int bits(int length); ///< as a number; at most 24
    void skip(int count) { place += count; }

    /// The Exp-Golomb numbers ue(v) and se(v) (ITU-T H.264, 9.1 and 9.1.1); 0 where there is none.
    /// Neither they nor what is reckoned with them leave the numbers of 32 bits.
    std::int64_t golomb();
    std::int64_t signedGolomb();

    /// Whether all that was read stands in the bytes and every number was one.
    bool isSound() const { return areNumbers && place <= bytes.size() * 8; }

private:
    PacketBytes bytes;
    std::int64_t place;
    bool areNumbers = true;
};
