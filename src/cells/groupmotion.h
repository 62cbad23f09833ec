// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgroups.h"

/// How much moves in each picture of a recording, from the cells that have changed in it.
class GroupMotion {
public:
    /// The cells that the largest group of changed ones has; cells that touch, corners included,
    /// are one group. `time` in seconds, as the stream counts them; `changed` has the cells that
    /// are looked at alone.
    int add(double time, const CellBits& changed);

private:
    CellGroups groups;
};
