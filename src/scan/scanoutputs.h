// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipexport.h"
#include "clipformat.h"
#include "messages.h"
#include "orderedoutput.h"
#include "scanreport.h"
#include "snapshotfolder.h"
#include "totals.h"
#include "valuesstore.h"

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
