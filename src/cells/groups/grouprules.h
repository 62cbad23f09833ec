// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// What makes a group of changed cells motion. Tried on labelled recordings and on variants of them
/// with noise, poor encoding, half the size and half the rate. Each number lies on a plateau: those
/// around it, as said, find the same.

// Which groups are followed from map to map.
constexpr int mostFollowed = 12;       ///< of a map, the largest ones; six find the same
constexpr int mostTracks = 64;         ///< remembered at a time, so that memory is bounded
constexpr double longestGap = 0.3;     ///< seconds for which a group may be unseen; 0.2..0.5
constexpr double longestRareGap = 1.0; ///< the same from one map to the next, where maps are rare

// A group that moves along counts several times its area: what is far away is small, while noise
// and leaves stay where they are.
constexpr double alongTime =
    0.75; ///< seconds that it is watched for: the memory of the maps; 0.6..1
constexpr double placeEvery = 0.2; ///< seconds between the places that make its path
constexpr int alongCells = 2;      ///< that its middle must have come; 1.5..3
constexpr int straightOf = 5;      ///< so many times its straight way must be no less ...
constexpr int straightPath = 4;    ///< ... than so many times its path; at 0.7 leaves move, too
constexpr int alongWeight = 5;     ///< 4..6; with less, half of the small and distant ones are lost

// Light makes a group brighter or darker as a whole. What moves does both, since it covers and
// uncovers, as soon as it has moved for as long as maps look back.
constexpr double oneWayTime =
    0.75;                          ///< seconds after which a group that goes one way counts nothing
constexpr int bothWaysPercent = 3; ///< more of the cells must go the rarer way; 1..4
constexpr double lately = 1.0;     ///< seconds for which that they did is remembered; 1..2

// A thing of one brightness before an even ground makes a group that goes one way where it arrives
// and one that goes the other way where it was; quick ones leave a gap between the two.
constexpr int partnerRatio = 3; ///< at most so many times the area of the other one

// What changes both ways on the spot for longer than leaves do: somebody is at work.
constexpr double stayingAge = 1.5; ///< seconds; at 1, a leaf is, too
constexpr int stayingWeight = 2;

/// Only groups with at least one in so many of all changed cells count more than once: where all is
/// full of them, the camera shakes. 3..5.
constexpr int shareOfChanged = 4;
