// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturesearch.h"

#include "mpvhandle.h"
#include "mpvvalues.h"

#include <algorithm>

namespace {

// Seconds before its target at which a search for it begins.
constexpr double usualLead = 1.0;
constexpr double longLead = 20.0;
constexpr double lateSeconds = 0.1; // a picture is not the one that was looked for

} // namespace

void PictureSearch::forget(MpvHandle& player) {
    setLead(player, usualLead);
}

void PictureSearch::begin(MpvHandle& player, double seconds, quint64 id) {
    // What is below zero counts from the end.
    wanted = std::max(first + std::max(seconds, 0.0), 0.0);
    isAny = false;
    player.command({"seek", numberText(wanted), "absolute+exact"}, id);
}

bool PictureSearch::widen(MpvHandle& player) {
    if (lead >= longLead)
        return false;
    setLead(player, longLead);
    return true;
}

bool PictureSearch::isFound(double time) const {
    return isAny && time <= wanted + lateSeconds;
}

void PictureSearch::setLead(MpvHandle& player, double seconds) {
    lead = seconds;
    player.set("hr-seek-demuxer-offset", numberText(seconds));
}
