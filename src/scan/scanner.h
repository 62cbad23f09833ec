// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recording.h"
#include "scanoptions.h"

#include <QIODevice>

#include <functional>

/// Scans the videos, `options.jobs` of them side by side. Clips go to `output`, which must be open;
/// everything else goes to standard error. `prepared` is called once, when the folders are made and
/// before the first recording is read or a thread begun.
using Prepared = std::function<void(const ScanOptions&, const std::vector<Recording>&)>;
ExitStatus scan(const ScanOptions& options, QIODevice& output, const Prepared& prepared);

/// Writes the names of the videos to `output` instead, each ended by a null byte.
ExitStatus printNames(const ScanOptions& options, QIODevice& output);
