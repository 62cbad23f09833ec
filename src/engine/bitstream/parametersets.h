// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"

#include <cstddef>
#include <map>
#include <string>

/// The parameter sets of one stream: those that a decoder is opened with, and those in the packets
/// that have come so far.
///
/// A decoder that begins at a packet knows the sets of the headers and that packet's own. It
/// decodes as one that never stopped only where these are all.
///
/// What is kept is bounded. Of a stream with more or larger sets than there can be nothing is kept.
class ParameterSets {
public:
    /// `most`: how many a stream can have.
    explicit ParameterSets(int most)
        : most(std::size_t(most)) {}

    /// A set of the stream's headers. Any number can be its `id`.
    void addOfHeader(int id, const PacketBytes& set);

    /// From now on sets belong to the stream's next packet.
    void beginPacket();

    void addOfPacket(int id, const PacketBytes& set);

    /// Whether the packet, not being the first one, has brought a set that was not there before or
    /// was another.
    bool areChanged() const { return isChanged; }

    /// Whether each set in force is one of the headers' or stands in the packet.
    bool areAllKnown() const;

    /// There is a set that there cannot be: from now on they are too many.
    void refuse();

    /// Whether there were more sets than there can be, or one that is too large. Nothing else is
    /// known from then on.
    bool areTooMany() const { return isRefused; }

private:
    struct Set {
        std::string ofHeader;
        std::string current;
        long long packet = 0; ///< number of the last packet that holds it
    };

    Set* setFor(int id, const PacketBytes& set);

    std::size_t most;
    std::map<int, Set> sets;
    long long packet = 0; ///< packets so far
    bool isChanged = false;
    bool isRefused = false;
};
