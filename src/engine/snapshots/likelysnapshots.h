// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "picturekeeper.h"

/// Keeps those pictures of a chunk that most likely become snapshots, small.
///
/// A snapshot has the strongest motion of a voting window and all that follows up to the end of its
/// clip: of seconds. So the strongest of each half second is kept, unless the next half second has
/// a stronger one. A window that begins in the middle of motion can show another one.
///
/// A value that is strongest when a clip opens shows the picture before its own (`ClipSegmenter`),
/// later its own: both are kept. Of equals the newest counts for the former, the oldest for the
/// latter.
class LikelySnapshots : public PictureKeeper {
public:
    /// Pictures that do not reach `threshold` are not kept. `skip`: of the measure.
    LikelySnapshots(MotionThreshold threshold, int skip);

    void begin(qint64 number) override;
    void take(int place, const Picture& previous, const Picture& current,
              std::optional<MotionScore> motion) override;
    KeptPictures end() override;
    void takeFirst(qint64 number, const DecodedFrame& previous, const DecodedFrame& first,
                   std::optional<MotionScore> motion, KeptPictures& kept) const override;

private:
    struct Strongest {
        float value = -1.0F; ///< below 0: there is none
        int place = 0;       ///< the first picture of that value
        Picture picture;
        int placeBefore = 0; ///< the picture before the last one of that value
        Picture before;
    };

    void endBlock();
    void keep(const Strongest& strongest);

    MotionThreshold threshold;
    int skip;
    qint64 first = 0;                   ///< number of the chunk's first picture
    std::optional<MotionScore> current; ///< as the detection will see it
    int inBlock = 0;                    ///< pictures seen
    Strongest strongest;                ///< of the block
    Strongest pending;                  ///< of the block before
    KeptPictures kept;
};
