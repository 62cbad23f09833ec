// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "container.h"

#include <algorithm>
#include <array>

namespace {

struct Entry {
    Container container;
    const char* name;
    int stored; ///< in the settings store; the entry's place in the dialog's list
};

constexpr std::array<Entry, 3> entries = {{
    {Container::Avi, "avi", 0},
    {Container::Mp4, "mp4", 1},
    {Container::Mkv, "mkv", 2},
}};

template<class Predicate>
const Entry* find(Predicate predicate) {
    const auto found = std::find_if(entries.begin(), entries.end(), predicate);
    return found == entries.end() ? nullptr : &*found;
}

} // namespace

QString containerName(Container container) {
    return QLatin1String(find([=](const Entry& e) { return e.container == container; })->name);
}

std::optional<Container> containerNamed(const QString& name) {
    const Entry* entry = find([&](const Entry& e) { return name == QLatin1String(e.name); });
    return entry ? std::optional(entry->container) : std::nullopt;
}

Container containerStoredAs(int number) {
    const Entry* entry = find([=](const Entry& e) { return e.stored == number; });
    return entry ? entry->container : Container::Avi;
}
