// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recording.h"
#include "scanoptions.h"
#include "scanoutputs.h"

#include <vector>

/// Scans all recordings, `options.jobs` at a time, and decides on those together that go on in one
/// another. Says which do, and why the others do not, where that is wanted. AllDone if nothing went
/// wrong with any.
///
/// Each is measured by itself, as it would be without others. They are then put together in the
/// order in which they are named, whatever order they are measured in.
ExitStatus scanContinued(std::vector<Recording>& recordings, const ScanOptions& options,
                         ScanOutputs& outputs);
