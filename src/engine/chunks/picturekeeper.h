// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellpicture.h"
#include "decodedframe.h"
#include "motionscore.h"

#include <QImage>

#include <functional>
#include <map>
#include <memory>
#include <optional>

/// A picture as small as it is shown, and why it is kept.
struct KeptPicture {
    float value = 0.0F; ///< the greater, the more likely somebody asks for it
    QImage picture;     ///< never null
};

/// Pictures of one chunk, by their places in it; -1 is the last one of the chunk before.
using KeptPictures = std::map<int, KeptPicture>;

/// Sees the pictures of a chunk while they are there, in order, on the thread that decodes it,
/// and keeps what somebody may ask for later.
class PictureKeeper {
public:
    using Picture = std::shared_ptr<const DecodedFrame>;

    virtual ~PictureKeeper() = default;

    /// A chunk begins. Its first picture is most likely number `number` of the recording.
    virtual void begin(qint64 number) = 0;

    /// The next picture, from the first one on, and its cells, where these are wanted; null if it
    /// has none. Its time is that of its packet, as far as the chunk alone tells.
    virtual void takeCells(const DecodedFrame& picture, const CellPicturePointer& cells) {
        static_cast<void>(picture);
        static_cast<void>(cells);
    }

    /// The next picture, `place` in the chunk, 1 or more, and what comparing it with the one
    /// before it gave.
    virtual void take(int place, const Picture& previous, const Picture& current,
                      std::optional<MotionScore> motion) = 0;

    /// There are no more.
    virtual KeptPictures end() = 0;

    /// The first picture of a chunk, number `number`, can be compared only later, with the last
    /// one before it. Adds those of the two that are to be kept to the chunk's.
    virtual void takeFirst(qint64 number, const DecodedFrame& previous, const DecodedFrame& first,
                           std::optional<MotionScore> motion, KeptPictures& kept) const = 0;
};

/// Makes a keeper for one thread; any thread may ask for one.
using PictureKeeperMaker = std::function<std::unique_ptr<PictureKeeper>()>;
