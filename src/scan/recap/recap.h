// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "messages.h"
#include "recapclips.h"

#include <functional>

/// Why the recap cannot be written where it is wanted, for a person; empty if it can, as far as one
/// can see before it is.
QString recapFlaw(const QString& file);

/// Writes the clips, one after another, into one film: beside its name, and renamed when it is
/// whole. False if not all of it could be done, which was complained of; no film is left that is
/// not whole, but one without the clips that could not be read is.
///
/// `isEnding` answers whether the scan is to end.
bool writeRecap(const std::vector<RecapClip>& clips, const RecapOptions& options,
                Messages& messages, const std::function<bool()>& isEnding);
