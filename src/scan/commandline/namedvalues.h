// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scanoptions.h"

/// `options` with the recordings themselves in the places of values files that were named, which
/// then stand in `valuesFiles`.
ScanOptions withNamedValues(ScanOptions options);
