// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// How a detection ended.
enum class DetectionOutcome {
    Finished,       ///< read to the end of the stream
    Cancelled,      ///< somebody wanted it so; an open clip was still reported
    CannotOpen,     ///< nothing was reported
    TooFewPictures, ///< fewer than two pictures could be decoded; nothing was reported
    NoUsableTimes,  ///< though they must be; found out at the first picture or at the end
    ReadFailed,     ///< in the middle of the file; an open clip was still reported
    OutOfMemory     ///< the same, but nobody was told of an end
};
