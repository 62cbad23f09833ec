// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "region.h"

class OptionValues;
class QCommandLineParser;

/// The region that --roi, --mask and --exclude select; what is wrong with them is rejected.
RegionOfInterest readRegion(const QCommandLineParser& parser, OptionValues& values);
