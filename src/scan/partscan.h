// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scanoutputs.h"

/// Measures and keeps one part of a recording, and decides nothing. AllDone if it is kept; else as
/// `RecordingScan::run`.
ExitStatus scanPart(Recording& recording, const ScanOptions& options, ScanOutputs& outputs);
