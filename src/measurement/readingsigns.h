// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

/// What was seen of a recording while it was read that tells of damage.
struct ReadingSigns {
    /// Packets behind the first picture that could not be decoded, but for the last one.
    qint64 undecodedPackets = 0;

    bool hasErrors = false; ///< the container's own bytes were damaged
    double promised = 0.0;  ///< seconds that the headers say the video lasts; 0 if they do not
};
