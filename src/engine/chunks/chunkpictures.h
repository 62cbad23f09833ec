// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "frame.h"

#include <QImage>

#include <functional>

/// Decodes the picture of a frame in a chunk once more. Its time is not set; null if it cannot be
/// had. The recording's decoder must still be there.
FramePointer decodeAgain(const Frame& frame);

/// Decodes pictures of a chunk once more, from its first one on, for as long as `take` answers
/// true. It is given each with its place; times are not set. The recording's decoder must still be
/// there.
void decodeAgain(const Chunk& chunk,
                 const std::function<bool(int place, FramePointer picture)>& take);

/// The small picture that was made of it while it was there; null if there is none.
QImage keptPicture(const Frame& frame);

/// The bytes of the packets that nothing but pictures of its recording keeps alive, beside those of
/// the chunk at hand.
qint64 keptBytes(const Frame& frame);
