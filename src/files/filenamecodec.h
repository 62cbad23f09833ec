// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Makes the codec of the locale one that loses no byte of a file name. Call before the application
/// object is made, from which on it holds for QFile::encodeName and decodeName, for listings, the
/// command line and the arguments of processes.
///
/// Names are UTF-8 whatever the locale says. A byte that is none, 0x80 to 0xff, becomes the single
/// character U+DC80 to U+DCFF, which no valid text holds, and that byte again on the way back: what
/// is decoded and encoded has the same bytes as before.
void installFileNameCodec();

/// The byte that `character` stands for in a decoded name, 0x80 to 0xff; 0 if it stands for itself.
///
/// Ask only for a low surrogate without its high one.
constexpr unsigned char undecodedByte(QChar character) {
    const ushort code = character.unicode();
    return code >= 0xdc80 && code <= 0xdcff ? static_cast<unsigned char>(code & 0xff) : 0;
}
