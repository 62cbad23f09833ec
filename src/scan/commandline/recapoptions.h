// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "container.h"

#include <QString>

/// The film of all clips.
struct RecapOptions {
    QString file; ///< empty: none is wanted
    Container container = Container::Mp4;
    double speed = 1.0;    ///< 1 to 32 times as fast
    double megabits = 2.0; ///< per second
};
