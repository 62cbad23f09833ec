// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "parametersets.h"

#include <algorithm>

namespace {

std::string copyOf(const PacketBytes& set) {
    return {reinterpret_cast<const char*>(set.data()), std::size_t(set.size())};
}

} // namespace

void ParameterSets::addOfHeader(int id, const PacketBytes& set) {
    Set& known = sets[id];
    known.ofHeader = copyOf(set);
    known.current = known.ofHeader;
}

void ParameterSets::beginPacket() {
    ++packet;
    isChanged = false;
}

void ParameterSets::addOfPacket(int id, const PacketBytes& set) {
    const std::string bytes = copyOf(set);
    Set& known = sets[id];
    isChanged = isChanged || (packet > 1 && known.current != bytes);
    known.current = bytes;
    known.packet = packet;
}

bool ParameterSets::areAllKnown() const {
    return std::all_of(sets.begin(), sets.end(), [this](const auto& entry) {
        const Set& set = entry.second;
        return set.packet == packet || set.current == set.ofHeader;
    });
}
