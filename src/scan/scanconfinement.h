// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recording.h"
#include "scanoptions.h"

/// Confines the program (`Confinement`), which must have one thread and have made its folders, to
/// what a scan with these options opens from then on: the recordings that were named, its folders
/// and the encoder. Where this fails it says so on standard error.
void confine(const ScanOptions& options, const std::vector<Recording>& recordings);
