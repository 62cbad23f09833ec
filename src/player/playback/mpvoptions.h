// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvlibrary.h"

/// Sets what must hold before the player begins: it reads no configuration, scripts or files beside
/// the one that it is given, and touches neither network, keys nor terminal. False where it does
/// not know one of these options.
bool setPlayerOptions(const MpvLibrary& library, mpv_handle* player);
