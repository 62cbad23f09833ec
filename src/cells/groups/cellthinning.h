// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgroups.h"
#include "cellmap.h"

/// Takes the groups away that have fewer than `leastGroup` cells, of each step by itself: their
/// cells fall to the step below. `groups` is what they are found with.
void removeSmallGroups(CellMap& map, CellGroups& groups);
