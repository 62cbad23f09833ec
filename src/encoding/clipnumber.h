// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The number of a clip as file names hold it: at least four digits, "0003".
QString clipNumber(int index);
