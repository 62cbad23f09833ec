// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobrecord.h"

/// The job of a file that no first picture could be had of: failed, with the reason, and with no
/// clip folder. Opens the file: not for the GUI thread.
JobRecord recordOfUnopened(const QString& fileName);
