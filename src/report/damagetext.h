// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "damage.h"

#include <QString>

/// What is missing of a recording, for a person.
QString damageText(const Damage& damage);
