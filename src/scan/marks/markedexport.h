// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "marks.h"
#include "recording.h"
#include "scanoptions.h"

#include <QIODevice>

#include <functional>
#include <vector>

/// What a call needs of the program around it.
struct MarkedCall {
    QIODevice& output; ///< open; gets a line for each clip, as those of a search are

    /// Called once, when the folders are made and before the first recording is opened, with those
    /// of the options' inputs that are to be opened.
    std::function<void(const ScanOptions&, const std::vector<Recording>&)> prepared;

    std::function<bool()> isEnding; ///< whether the call is to end
};

/// Cuts the clips out that `options.marksFile` names, which has been read as `marks`, into files as
/// those of a search that finds them, and makes the recap of them. Nothing is searched. Recordings
/// that are not what they were when somebody marked them are told of and left out.
ExitStatus exportMarked(const ScanOptions& options, const Marks& marks, const MarkedCall& call);
