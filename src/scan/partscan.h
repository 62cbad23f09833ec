// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionprogress.h"
#include "messages.h"
#include "scanoptions.h"
#include "totals.h"
#include "valuesstore.h"

/// One recording of a call of which one part is measured and kept, and nothing decided.
class PartScan : public DetectionProgress {
public:
    /// `index` is the recording's place in `options.videos`. All must outlive the scan.
    PartScan(int index, const ScanOptions& options, const ValuesStore& values, Messages& messages,
             Totals& totals);

    /// AllDone if the part is measured and kept; else as `RecordingScan::run`.
    ExitStatus run();

    bool isCancelled() override;
    void positionChanged(qint64 bytePosition, bool isAtEnd) override;

private:
    ExitStatus measure(const ValuesStore::Found& found);

    int index;
    const ScanOptions& options;
    const ValuesStore& values;
    Messages& messages;
    Totals& totals;
};
