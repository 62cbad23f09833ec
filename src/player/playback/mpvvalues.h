// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvlibrary.h"

#include <QByteArray>

#include <cstdint>

// Values as the library takes and gives them.

QByteArray numberText(double number);
QByteArray flagText(bool flag);

/// The number of the file that a "loadfile" has begun with; 0 where the reply has none.
std::int64_t entryOf(const mpv_node& result);

/// The number that was asked for, as seconds; 0 where the reply has none.
double secondsOf(const mpv_event& reply);
