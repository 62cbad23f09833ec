// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "encoderarguments.h"

/// The choices that the settings store holds now; its absent keys give the defaults.
EncodingSettings readEncodingSettings();
