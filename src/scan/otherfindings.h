// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "measurement.h"
#include "scanoptions.h"

#include <functional>

/// What other options would find in a recording that was searched. Only what is at hand is decided
/// on: nothing is decoded for it.
class OtherFindings {
public:
    /// `measured` has the values of the mean, and maps, if they are at hand; `decided` the values
    /// that were decided on as `segmentation` says, if they are. `isMeanFitting`: the mean was
    /// measured as this call's options ask for. All must outlive this object.
    OtherFindings(const Measurement& measured, bool isMeanFitting, const Measurement& decided,
                  const ScanOptions& options, const SegmentationOptions& segmentation);

    /// Where nothing was found: "--minimum 1 finds 1 clip; --detector cells finds 3 clips". Empty
    /// where too little is at hand to tell.
    QString more() const;

    /// The same where all is motion, of options that leave some of it out.
    QString less() const;

private:
    struct Found {
        int clips = 0;
        double share = 0.0; ///< of the recording, that lies in clips
    };
    using IsWanted = std::function<bool(const Found&)>;

    Found decide(const Measurement& measurement, const SegmentationOptions& other) const;
    Found decideOnCells(const CellOptions& other) const;
    QString shorterMinimum() const;
    QString cellsInstead(const IsWanted& isWanted) const;
    QString meanInstead() const;
    QString otherSensitivity(int towards, const IsWanted& isWanted) const;
    QString withoutRestless(const IsWanted& isWanted) const;
    SegmentationOptions segmentationOf(double threshold, double minimum) const;
    QString nameOf(const char* detector, double threshold) const;
    bool isGiven(const char* option) const;

    const Measurement& measured;
    bool isMeanFitting;
    const Measurement& decided;
    const ScanOptions& options;
    const SegmentationOptions& segmentation;
};
