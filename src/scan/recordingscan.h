// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingoutput.h"
#include "scanprogress.h"

/// One recording of a call: finds what was measured of it or measures it, and decides on that.
class RecordingScan {
public:
    /// All must outlive the scan.
    RecordingScan(Recording& recording, const ScanOptions& options, ScanOutputs& outputs);

    /// AllDone if the recording was read to its end and everything found was written,
    /// SomeUnreadable if its own bytes kept it from being read, else SomeFailed.
    ExitStatus run();

private:
    MeasuringEnd search();
    void complainOfRefusal();
    void watch(const ValuesStore::Found& found);
    bool isUnchanged();
    void judgeChange(MeasuringEnd& end);
    MeasuringEnd measure();
    MeasuringEnd measureFirst();
    MeasuringEnd runAndKeep(Detection& detection);
    MeasuringEnd decideOnKept(const KeptValues& values);
    MeasuringEnd decide(const MeasuringEnd& measured, bool isQuick);
    void takeValuesOfCells();
    bool decideOnAll();
    MeasuringEnd refine();
    void lookAtOtherOptions(const ValuesStore::Found& found, const MeasuringEnd& end);
    bool isMeasuredFirst() const;
    bool areCellsAsked() const { return options.detection.detector == Detector::Cells; }
    const Measurement& decided() const { return areCellsAsked() ? ofCells : measurement; }
    bool areSnapshotsWanted() const;

    Recording& recording;
    const ScanOptions& options;
    ScanOutputs& outputs;
    ScanProgress progress;
    RecordingOutput output;
    Measurement measurement;          ///< what was measured, where that is needed once it was
    Measurement ofCells;              ///< the same with the values of cells, where they decide
    SegmentationOptions segmentation; ///< how
    std::optional<DetectionOptions> measuredAs; ///< nothing: it cannot be told
    bool isMeanFitting = true;                  ///< the mean was measured as this call asks
    Damage damage;
    bool isSearched = false; ///< the recording is read in this call, not only for its clips
    bool isWritten = true;
};
