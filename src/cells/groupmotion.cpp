// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "groupmotion.h"

#include <algorithm>

int GroupMotion::add(double time, const CellBits& changed) {
    static_cast<void>(time);
    int largest = 0;
    for (const CellGroup& group : groups.find(changed, 1))
        largest = std::max(largest, group.area);
    return largest;
}
