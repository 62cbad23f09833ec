// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTypeInfo>

#include <type_traits>

/// How much has moved from one picture to the next. There is one for each picture of a recording,
/// so it is kept as small as it can be.
struct MotionScore {
    float value = 0.0F; ///< the motion value, 0 or more

    bool operator==(MotionScore other) const { return value == other.value; }
};
static_assert(std::is_trivially_copyable_v<MotionScore>, "lists of it are copied as bytes");
Q_DECLARE_TYPEINFO(MotionScore, Q_PRIMITIVE_TYPE);

/// Separates motion from quiet. It takes as much as the threshold to open a clip, and more than it
/// to keep one open.
struct MotionThreshold {
    float value = 0.5F; ///< motion value

    bool isReachedBy(MotionScore motion) const { return motion.value >= value; }
    bool isExceededBy(MotionScore motion) const { return motion.value > value; }
};
