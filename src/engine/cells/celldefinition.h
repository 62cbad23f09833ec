// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What counts as a change of a cell. It was measured on 17 recordings whose motion was labelled by
// eye, and on the same with noise added, encoded anew, at half the size and at half the rate. Noise
// is told from each picture alone: learnt over time, busy recordings would raise it.
namespace cells {

// Seconds before the newest picture.
constexpr double newest = 0.25; ///< since when a cell is as it is now
constexpr double lag = 0.45;    ///< until when it is as it was before
constexpr double oldest = 0.75; ///< since when it is as it was before

constexpr int unit = 128; ///< one level, of the 256 that a pixel has

constexpr int fewestLevels = 8; ///< by which a changed cell differs
constexpr int sigmas = 8;       ///< of noise, by which it differs, too
constexpr int whiteSigmas = 5;  ///< the same where noise was strong and white

/// What the mean of neighbours takes noise down by where it is white, which gives 2.2 to 3; leaves,
/// light and what encoders leave give 1.0 to 1.4.
constexpr int whiteFactor = 2;

// In ten thousandths.
constexpr int sigmaOfMedian = 14826; ///< of noise, for its median absolute difference
constexpr int strongNoise = 16000;   ///< levels; above this sigma neighbours are averaged

// Parts of a second, counted from where the stream counts from, in which nothing is done twice.
// Their middles are whole numbers of them, since that is where times of most recordings lie.
constexpr int momentsASecond = 125; ///< of the pictures of one, the first alone is remembered
constexpr int momentsOfAMap = 10;   ///< in which one map is made: it is of means that are longer

constexpr double longestWindow = oldest - lag > newest ? oldest - lag : newest;

} // namespace cells
