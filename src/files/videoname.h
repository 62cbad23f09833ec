// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

/// Whether a file of that name (bytes, with or without folders) is looked at where a whole folder
/// is: its extension is one of recordings, in whatever case.
bool isVideoName(std::string_view name);
