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
