// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clippicture.h"

/// Any picture of a recording where nobody wants to see it. Never null.
ClipPicturePointer noPicture();
