// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipfolders.h"
#include "clipformat.h"
#include "messages.h"
#include "scanreport.h"
#include "totals.h"
#include "valuesstore.h"

/// Everything that the recordings of one call share and write to.
struct ScanOutputs {
    ClipFormat& format;
    ClipFolders& folders;
    const ScanReport* report; ///< null: none wanted
    Messages& messages;
    Totals& totals;
    const ValuesStore& values;
};
