// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codecaccesspoints.h"

#include <memory>

/// For AV1: shown key frames behind a sequence header that is the only one so far.
std::unique_ptr<CodecAccessPoints> av1AccessPoints();
