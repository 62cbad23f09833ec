// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"
#include "packetkind.h"

/// What the packets of one codec are, as far as their bytes tell.
class CodecAccessPoints {
public:
    virtual ~CodecAccessPoints() = default;

    /// The stream's next packet. `isLeading` says that it is shown before the picture before it in
    /// the stream, wherever it stands; of `isKey`, the container's word, nothing is to be believed
    /// that the bytes can tell.
    virtual PacketKind kindOf(const PacketBytes& packet, bool isKey) = 0;
};
