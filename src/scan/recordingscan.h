// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipexport.h"
#include "clipformat.h"
#include "clipmerger.h"
#include "messages.h"
#include "orderedoutput.h"
#include "picturefinder.h"
#include "scanoptions.h"
#include "scanreport.h"
#include "snapshotfolder.h"
#include "totals.h"
#include "valuesstore.h"

#include <memory>
#include <vector>

/// Everything that the recordings of one call share and write to.
struct ScanOutputs {
    ClipFormat& format;
    OrderedOutput& clips;
    OrderedOutput* trace; ///< null: none wanted
    const SnapshotFolder& snapshots;
    std::vector<ClipExport>& exports; ///< one per recording
    ScanReport* report;               ///< null: none wanted
    Messages& messages;
    Totals& totals;
    const ValuesStore& values;
};

/// One recording of a call: follows its detection and reports it.
class RecordingScan : public DetectionClient {
public:
    /// `index` is the recording's place in `options.videos`. All must outlive the scan.
    RecordingScan(int index, const ScanOptions& options, ScanOutputs& outputs);

    /// True if the recording was read to its end and everything found was written.
    bool run();

    bool isCancelled() override;
    void opened(const QByteArray& codecName, double duration) override;
    void regionIsEmpty() override;
    void described(const StreamDescription& stream, double firstTime) override;
    void numbered(double frameRate) override;
    void frameProcessed(const FrameReport& frame) override;
    void positionChanged(qint64 bytePosition) override;
    void endReached() override;
    void clipFound(const DetectedClip& clip) override;

private:
    void complainOfRefusal();
    void pass(const std::optional<DetectedClip>& clip);
    QString measure(const ValuesStore::Found& found);
    QString lookQuickly(const ValuesStore::Found& found);
    QString decide(const KeptValues& values);
    SegmentationOptions segmentationOf(const KeptValues& values) const;
    void makeFinder(const KeptValues& values);
    ClipPicturePointer clipPicture(int picture);
    void exportClip(ClipLine& found);
    void showInReport(const ClipLine& found);
    void report(const QByteArray& lines);
    QString writeSnapshot(const DetectedClip& clip);
    QString missingPicture();

    int index;
    const ScanOptions& options;
    ScanOutputs& outputs;
    ClipExport& exporter;
    std::optional<ClipMerger> merger; ///< where clips are merged
    VideoLine line;
    PlayedRecording played;
    Measurement measurement;               ///< what is decided on, where it is kept
    std::unique_ptr<PictureFinder> finder; ///< null: the recording is decoded
    bool isWritten = true;
};
