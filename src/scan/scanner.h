// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recording.h"
#include "scanoptions.h"
#include "scanoutputs.h"

#include <QIODevice>

#include <functional>

/// Called once, when the folders are made and before the first recording is read or a thread begun.
using Prepared = std::function<void(const ScanOptions&, const std::vector<Recording>&)>;

/// Scans all recordings of a call, of which some go on in others: `scanContinued`, which this room
/// does not know.
using Road = std::function<ExitStatus(std::vector<Recording>&, const ScanOptions&, ScanOutputs&)>;

/// Scans the videos, `options.jobs` of them side by side. Clips go to `output`, which must be open;
/// everything else goes to standard error.
ExitStatus scan(const ScanOptions& options, QIODevice& output, const Prepared& prepared,
                const Road& continued);

/// Writes the names of the videos to `output` instead, each ended by a null byte. `prepared` is
/// called where recordings are opened for it.
ExitStatus printNames(const ScanOptions& options, QIODevice& output, const Prepared& prepared);
