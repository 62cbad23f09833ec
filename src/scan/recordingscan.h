// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "interrupt.h"
#include "measuredahead.h"
#include "picturefinder.h"
#include "recordingoutput.h"
#include "scanprogress.h"
#include "timerange.h"

#include <memory>

/// One recording of a call: finds what was measured of it or measures it, and decides on that.
class RecordingScan {
public:
    /// All must outlive the scan. `known`: of the recording, already.
    RecordingScan(Recording& recording, const ScanOptions& options, ScanOutputs& outputs,
                  MeasuredAhead known = {});

    /// AllDone if the recording was read to its end and everything found was written,
    /// SomeUnreadable if its own bytes kept it from being read, else SomeFailed.
    ExitStatus run();

    /// In place of `run`, where it is decided on together with others: finds what was measured of
    /// it or measures it, and decides nothing.
    void measureAlone();

    /// What was measured then, and how that ended.
    const Measurement& measured() const { return measurement; }
    const MeasuringEnd& measuringEnd() const { return ended; }
    bool isOfKeyFrames() const { return areKeyFramesMeasured; }

    /// Maps are of no use any more.
    void forgetMaps() { measurement.maps = CellMaps(); }

    /// Whether somebody is to see pictures of its clips.
    bool areSnapshotsWanted() const;

    /// The handle of a picture of what was measured, 0 for its first. This object must outlive it.
    ClipPicturePointer pictureOf(int index);

    /// Takes what is decided.
    RecordingOutput& findings() { return output; }

    /// Everything is decided. Answers as `run` does.
    ExitStatus conclude();

    Recording& subject() const { return recording; }

private:
    MeasuringEnd search();
    ExitStatus finish(const MeasuringEnd& end);
    PictureFinder& pictureFinder();
    void complainOfRefusal();
    ValuesStore::Found find();
    void watch(const ValuesStore::Found& found);
    bool keepJoined(const ValuesStore::Found& found);
    void tellPartly(const MeasuringEnd& end);
    MeasuringEnd decidePartly();
    bool isUnchanged();
    void judgeChange(MeasuringEnd& end);
    MeasuringEnd measure();
    MeasuringEnd measureFirst();
    MeasuringEnd measureAll();
    void takeKept(const KeptValues& values);
    MeasuringEnd runAndKeep(Detection& detection);
    MeasuringEnd decideOnKept(const KeptValues& values);
    MeasuringEnd decide(const MeasuringEnd& measured, bool isQuick);
    void takeValuesOfCells();
    bool decideOnAll();
    int pictureAt(double seconds) const;
    QVector<TimeRange> rangesToSearch() const;
    void tellOfFarKeyFrames() const;
    MeasuringEnd refine();
    void lookAtOtherOptions(const ValuesStore::Found& found, const MeasuringEnd& end);
    void showFile(const RecordingStamp& stamp);
    void showPlaces(const ValuesStore::Found& found);
    bool isMeasuredFirst() const;
    bool areCellsAsked() const { return options.detection.detector == Detector::Cells; }
    const Measurement& decided() const { return areCellsAsked() ? ofCells : measurement; }

    /// What was measured is decided on, also where the scan has ended since.
    bool isOver() const { return !wasAhead && isEnding(); }

    Recording& recording;
    const ScanOptions& options;
    ScanOutputs& outputs;
    MeasuredAhead ahead;
    bool wasAhead; ///< something was
    ScanProgress progress;
    RecordingOutput output;
    Measurement measurement;          ///< what was measured, where that is needed once it was
    Measurement ofCells;              ///< the same with the values of cells, where they decide
    SegmentationOptions segmentation; ///< how
    std::optional<DetectionOptions> measuredAs; ///< nothing: it cannot be told
    bool isMeanFitting = true;                  ///< the mean was measured as this call asks
    std::unique_ptr<PictureFinder> finder;      ///< null: nobody has asked for a picture
    MeasuringEnd ended;                         ///< of `measureAlone`
    bool areKeyFramesMeasured = false;          ///< alone, by that
    Damage damage;
    bool isSearched = false; ///< the recording is read in this call, not only for its clips
    bool isWritten = true;
};
