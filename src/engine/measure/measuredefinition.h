// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The number of the definition of motion values. It grows whenever a recording gets other values
/// than before, so that those which were kept are measured anew.
constexpr int measureDefinition = 1;

/// The same for maps of changed cells.
constexpr int cellsDefinition = 1;
