// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// What makes a group of changed cells motion. Found on labelled recordings and on variants of them
/// with noise, poor encoding, half the size and half the rate, each left out in turn.

// Which groups are followed from picture to picture.
constexpr int leastGroup = 2;    ///< cells; a single one is followed nowhere
constexpr int mostFollowed = 12; ///< of a picture, the largest ones
constexpr int mostTracks =
    64; ///< that are remembered at a time; bounds memory, not met in practice
constexpr double longestGap = 0.3; ///< seconds after which a group that is not seen is forgotten

// A group that moves along counts several times its area: what is far away is small, and noise,
// leaves and light stay where they are.
constexpr double alongTime = 0.75; ///< seconds that it is watched for
constexpr double placeEvery = 0.2; ///< seconds between the places that make its path
constexpr int alongCells = 2;      ///< that its middle must have come
constexpr int straightOf = 5;      ///< so many parts of its way straight on ...
constexpr int straightPath = 4;    ///< ... against so many parts of its path
constexpr int alongWeight = 5;
