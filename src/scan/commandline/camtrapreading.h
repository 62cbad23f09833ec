// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrapoptions.h"

class OptionValues;
class QCommandLineParser;

/// What the command line says of a Camtrap DP package; what it lacks is rejected.
CamtrapOptions readCamtrap(const QCommandLineParser& parser, OptionValues& values);
