// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"

#include <QSize>
#include <QString>

/// The cells that are left out, for a person: "left out as restless: 34 of 14400 cells, in 2
/// places: 120,8,190,32 600,400,16,16", each place as --exclude takes it. Those of no grid cannot
/// be told.
QString restlessText(const CellBits& restless, QSize pictures);
