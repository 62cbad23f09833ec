// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clockoptions.h"

class OptionValues;
class QCommandLineParser;

/// What the command line says of times at which recordings began.
ClockOptions readClock(const QCommandLineParser& parser, OptionValues& values);
