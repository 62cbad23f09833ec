// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Whether both paths lead to one file, through links of either kind.
bool isSameFile(const QString& left, const QString& right);
