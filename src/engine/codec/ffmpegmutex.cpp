// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ffmpegmutex.h"

QMutex& ffmpegMutex() {
    static QMutex mutex;
    return mutex;
}
