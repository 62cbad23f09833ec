// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// What a recording's head says of time.
struct FileHead {
    QStringList times;    ///< at which it was made, as texts; the one first that tells most
    double seconds = 0.0; ///< its length; 0: unknown
};
