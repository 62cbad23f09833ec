// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionreport.h"

#include <QByteArray>

/// The picture's outline with the cells that are left out of it, as SVG with its text. Empty where
/// that was not asked for.
QByteArray restlessDrawing(const ReportedRestless& restless);
