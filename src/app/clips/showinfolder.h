// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Has the desktop's file manager show a file, chosen in its folder. Where none answers that can,
/// the desktop opens the folder. Does not wait for it.
void showInFolder(const QString& path);
