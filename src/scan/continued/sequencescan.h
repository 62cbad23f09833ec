// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellscores.h"
#include "clipcutter.h"
#include "clipmerger.h"
#include "fileseam.h"
#include "recordingscan.h"
#include "sequenceline.h"

#include <deque>
#include <functional>

/// Recordings that go on in one another, decided on as one. Each comes measured, in their order,
/// and its outputs are ended as soon as no clip can begin in it any more.
class SequenceScan {
public:
    /// Told how each recording has ended, in their order.
    using Concluded = std::function<void(Recording& recording, ExitStatus end)>;

    /// `options` and `outputs` must outlive this object.
    SequenceScan(const ScanOptions& options, ScanOutputs& outputs, Concluded concluded);

    /// Decides on the next recording, which must have pictures.
    void append(std::unique_ptr<RecordingScan> scan, const SequenceFile& file,
                const Continuation& how);

    /// There is no further one.
    void finish();

    const SequenceLine& line() const { return places; }

    /// The last recording of it.
    Recording& last() const { return members.back()->scan->subject(); }

private:
    struct Member {
        std::unique_ptr<RecordingScan> scan;
        int file = 0; ///< its place on the line
    };
    using MemberPointer = std::shared_ptr<Member>;
    class Picture;

    void follow(Recording& recording, int file);
    void begin(const MemberPointer& first);
    void goOn(const MemberPointer& member);
    std::optional<Seam> seamBefore(const Member& member) const;
    MotionSeries meansOf(const Member& member) const;
    MotionSeries cellsOf(const Member& member, const std::vector<CellMap>& begun);
    void decide(const MemberPointer& member, const MotionSeries& series);
    void add(MotionScore score, double time, ClipPicturePointer picture);
    void take(const std::optional<DetectedClip>& clip);
    void pass(const std::optional<DetectedClip>& clip);
    void tell(const DetectedClip& clip);
    ClipPicturePointer pictureOf(const MemberPointer& member, int index) const;
    ClipPicturePointer pictureAt(double seconds) const;
    Member& memberAt(int file) const;
    bool isConcluded(int file) const { return file < members.front()->file; }
    double earliestStart() const;
    void concludeEarly();
    void conclude();

    const ScanOptions& options;
    ScanOutputs& outputs;
    Concluded concluded;
    SegmentationOptions segmentation;
    SequenceLine places;
    RecordingStart start;              ///< of the first recording
    std::deque<MemberPointer> members; ///< those that are not concluded
    std::optional<ClipSegmenter> segmenter;
    std::optional<ClipMerger> merger; ///< where clips are merged
    std::optional<ClipCutter> cutter; ///< where long ones are cut
    bool arePicturesLate = false;     ///< made for clips that count alone
    std::optional<CellScores> scores; ///< where cells decide
    MotionScore motion;               ///< of the last picture
};
