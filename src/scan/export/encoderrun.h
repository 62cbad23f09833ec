// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "encoderarguments.h"

#include <functional>

/// Runs the encoder beside the program to its end. Any thread may have one of its own. Answers why
/// the file was not written, empty if it is there, whole as far as the encoder says, and holds
/// something. A file that holds nothing is removed.
///
/// The end of the scan, which `isEnding` tells of, ends the encoder as well, which then finishes
/// its file early; so does the end of the program.
QString runEncoder(const EncoderCall& call, const std::function<bool()>& isEnding);
