// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrappackage.h"

#include <QByteArray>

/// What datapackage.json says of a package and its tables: JSON, UTF-8, in lines.
QByteArray camtrapMetadata(const CamtrapPackage& package);
