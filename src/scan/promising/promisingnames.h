// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scanoptions.h"

/// The recordings of these names, the most promising first, on so many threads; those that promise
/// nothing follow in their order. Where parts are wanted (`ScanOptions::partSeconds`), in place of
/// each recording its parts, as "K/N NAME", the most promising of all recordings first.
QStringList promisingNames(const QStringList& names, const ScanOptions& options, int threads);
