// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrapoptions.h"
#include "clipformat.h"

/// Clips as events of a Camtrap DP package, which is written as a whole at the end; nothing goes to
/// standard output. Recordings of which it is not known when or where they were made are left out,
/// with a complaint. `options` must outlive what is answered.
std::unique_ptr<ClipFormat> makeCamtrapFormat(const CamtrapOptions& options);
