// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>

/// What to make of the times that a recording's pictures come with.
struct TimeOptions {
    /// Pictures per second; picture n then has the time n / frameRate, whatever the recording says.
    /// 0: the recording's own times.
    double frameRate = 0.0;

    /// Own times must be of use; false takes them as they come.
    bool mustBeUsable = false;
};

/// The time that a picture comes with.
struct StoredTime {
    double seconds = 0.0; ///< a very large negative number if it is missing
    bool isMissing = false;
    double headerFrameRate = 0.0; ///< pictures per second where the stream's headers tell that and
                                  ///< it has no times at all; else 0
};

/// Gives the pictures of one recording their times.
///
/// Where own times must be of use, a picture without one gets that of the picture before it. One
/// that has none before it counts on the rate in the headers: all pictures are then numbered.
class PictureClock {
public:
    explicit PictureClock(const TimeOptions& options);

    /// The next picture's time in seconds; nothing where it must be of use and is not.
    std::optional<double> next(const StoredTime& stored);

    /// Pictures per second at which pictures are numbered; 0 while they have times of their own.
    double frameRate() const { return options.frameRate; }

    /// False if the times must be of use and all pictures so far have the same one.
    bool isRunning() const;

private:
    TimeOptions options;
    long long count = 0; ///< of pictures so far
    double first = 0.0;
    double last = 0.0;
    bool hasMoved = false;
};
