// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"
#include "cellgroups.h"

/// Takes the groups away that have fewer than `leastGroup` cells. `groups` is what they are found
/// with.
void removeSmallGroups(CellBits& cells, CellGroups& groups);
