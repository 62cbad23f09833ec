// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

/// What is to be played: a stretch of a recording, or where it ends no later than it starts all of
/// the recording, shown at the start first. Seconds from its first picture.
struct PlayedClip {
    QString file;
    QString label; ///< for a person: "garden.mp4 #3"
    double start = 0.0;
    double end = 0.0;
    qint64 bytes = -1; ///< of the file when it was searched; -1: not known

    /// Whether the file is another one than was searched. Asked on a thread that may wait; null:
    /// that is not known.
    std::function<bool()> isChanged{};
};
