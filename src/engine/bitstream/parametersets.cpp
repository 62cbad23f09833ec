// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "parametersets.h"

#include <algorithm>
#include <utility>

namespace {

std::string copyOf(const PacketBytes& set) {
    return {reinterpret_cast<const char*>(set.data()), std::size_t(set.size())};
}

} // namespace

/// Null, from the first one on that there cannot be.
ParameterSets::Set* ParameterSets::setFor(int id, const PacketBytes& set) {
    constexpr std::int64_t largest = 64 * 1024; // those of real streams have some hundred bytes
    const bool isNew = sets.find(id) == sets.end();
    if (set.size() > largest || (isNew && sets.size() >= most))
        refuse();
    return isRefused ? nullptr : &sets[id];
}

void ParameterSets::refuse() {
    isRefused = true;
    sets.clear();
}

void ParameterSets::addOfHeader(int id, const PacketBytes& set) {
    Set* known = setFor(id, set);
    if (!known)
        return;
    known->ofHeader = copyOf(set);
    known->current = known->ofHeader;
}

void ParameterSets::beginPacket() {
    ++packet;
    isChanged = false;
}

void ParameterSets::addOfPacket(int id, const PacketBytes& set) {
    Set* known = setFor(id, set);
    if (!known)
        return;
    std::string bytes = copyOf(set);
    isChanged = isChanged || (packet > 1 && known->current != bytes);
    known->current = std::move(bytes);
    known->packet = packet;
}

bool ParameterSets::areAllKnown() const {
    return std::all_of(sets.begin(), sets.end(), [this](const auto& entry) {
        const Set& set = entry.second;
        return set.packet == packet || set.current == set.ofHeader;
    });
}
