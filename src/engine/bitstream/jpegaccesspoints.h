// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codecaccesspoints.h"

#include <memory>

/// For MJPEG: a picture is an access point if it brings every table that one has brought before it.
/// Those that it leaves out are taken from an earlier one.
std::unique_ptr<CodecAccessPoints> jpegAccessPoints();
