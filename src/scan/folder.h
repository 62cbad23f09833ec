// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Makes the folder, and those above it, where they are missing, and checks that files can be put
/// into it. Answers why not, for a person; empty after a success.
QString prepareFolder(const QString& path);
