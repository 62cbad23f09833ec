// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "messages.h"
#include "recording.h"

#include <mutex>

/// The sums over all recordings of one call, for the progress line. Any thread may call anything.
class Totals {
public:
    explicit Totals(const std::vector<Recording>& recordings);

    void setPosition(Recording& recording, qint64 bytePosition); ///< bytes; -1 if unknown
    void finish(Recording& recording);                           ///< nothing more is read of it
    void addSeconds(double seconds);
    void addClip();

    Progress progress() const;

private:
    mutable std::mutex mutex;
    qint64 bytes = 0; ///< of all recordings
    qint64 read = 0;  ///< of these
    double seconds = 0.0;
    int clips = 0;
};
