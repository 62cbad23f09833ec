// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Whether a character steers what shows it instead of being shown: control characters, separators
/// of lines and paragraphs, and the marks that turn the direction of writing, in which a name can
/// pretend to be another one. Joiners, without which some scripts cannot be written, do not.
bool isSteering(QChar character);

/// What stands for the character at a place of `text` where it would steer: "\n", "\t", "\r", or
/// the "\x1b" of its bytes. Null where it does not.
///
/// A byte 0x80 to 0x9f that is no UTF-8 (undecodedByte) steers, too: terminals that do not speak
/// UTF-8 take it for a control character.
QString steeringEscape(const QString& text, int place);

/// "\x1b" and the like.
QString byteEscape(unsigned char byte);
