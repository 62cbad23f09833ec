// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codecaccesspoints.h"

#include <memory>

/// For codecs whose packets are pictures that begin with what kind they are: whether that of
/// `packet` stands alone.
using KeyTest = bool (*)(const PacketBytes& packet);

bool isVp8Key(const PacketBytes& packet);
bool isVp9Key(const PacketBytes& packet);
bool isFlv1Key(const PacketBytes& packet);
bool isH263Key(const PacketBytes& packet);
bool isMsMpeg4v1Key(const PacketBytes& packet);
bool isMsMpeg4Key(const PacketBytes& packet); ///< of version 2 and 3, and of WMV1
bool isWmv2Key(const PacketBytes& packet);
bool isFfv1Key(const PacketBytes& packet);

/// Closed GOPs where `test` and the container say so: what looks like one by chance is none.
std::unique_ptr<CodecAccessPoints> keyAccessPoints(KeyTest test);
