// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// The fewest digits that read back to the same number.
QByteArray shortestDigits(float value);
QByteArray shortestDigits(double value);
