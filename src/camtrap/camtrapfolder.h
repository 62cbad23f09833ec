// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrappackage.h"

/// Writes a package into a folder that is there: three tables, and datapackage.json, which names
/// them, last. Where there is no room for all of them, those that are there stay. Answers why not
/// all could be written, for a person; empty after a success.
QString writeCamtrapPackage(const CamtrapPackage& package, const QString& folder);
