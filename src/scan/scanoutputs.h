// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipchoice.h"
#include "clipfolders.h"
#include "clipformat.h"
#include "messages.h"
#include "recapclips.h"
#include "scanreport.h"
#include "searchbudget.h"
#include "totals.h"
#include "valuesstore.h"

/// Everything that the recordings of one call share and write to.
struct ScanOutputs {
    ClipFormat& format;
    ClipFolders& folders;
    const ScanReport* report; ///< null: none wanted
    ClipChoice* choice;       ///< null: every clip is told of when it is found
    RecapClips* recap;        ///< null: none wanted
    Messages& messages;
    Totals& totals;
    const ValuesStore& values;
    SearchBudget& budget;
};
