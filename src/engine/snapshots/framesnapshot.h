// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clippicture.h"
#include "decodedframe.h"

/// A decoded picture that can still become a snapshot. A very large one is kept as its small
/// picture only.
class FrameSnapshot : public ClipPicture {
public:
    explicit FrameSnapshot(std::shared_ptr<const DecodedFrame> frame);

    QImage snapshot() override;
    void shrink() override;

private:
    std::shared_ptr<const DecodedFrame> frame; ///< null once the small picture is made
    QImage small;
};
