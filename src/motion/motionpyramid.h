// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <vector>

/// The motion of one recording over time, for the greatest value of any stretch of it at once.
///
/// Kept in buckets of equal length, with the greatest of eight, of sixty-four... above them. There
/// are never more than `mostBuckets`, however long the recording is: neighbours are joined when a
/// picture lies behind the last one.
class MotionPyramid {
public:
    static constexpr int mostBuckets = 1 << 20;
    static constexpr double shortestBucket = 1.0 / 32.0; ///< seconds

    /// A value measured between two pictures, at `time`, that of the newer one, in seconds from the
    /// first picture. It counts for the time since the newest one before. Times before the first
    /// picture count as its time; those that are no number are left out.
    void add(double time, float value);

    /// The greatest value of the buckets that lie in these seconds, if only in part; 0 where there
    /// are none.
    float strongest(double from, double to) const;

    float strongest() const; ///< of all; 0 without any

    double seconds() const { return newest; } ///< from the first picture to the last one

    double bucketSeconds() const { return bucket; }

private:
    void append(float value);
    void raise(std::size_t place, float value);
    void joinNeighbours();

    double bucket = shortestBucket; ///< seconds
    double newest = 0.0;
    std::vector<std::vector<float>> levels{{}}; ///< the buckets themselves, and those above them
};
