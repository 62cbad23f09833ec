// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvhandle.h"

#include <QImage>
#include <QSize>

#include <array>

/// What the player shows, drawn into images.
class MpvPicture {
public:
    /// Pixels that it is to fill, whatever the recording's shape. Empty: nothing is drawn.
    void setSize(const QSize& wanted) { size = wanted; }

    /// The player's picture as it is now; null where there is no room. May share its pixels with
    /// none but those that hold it.
    QImage draw(const MpvHandle& player);

    /// Lets the player go on without it being seen.
    void skip(const MpvHandle& player);

private:
    QImage& freeImage();
    bool render(const MpvHandle& player, QImage& image, bool isSkipped);

    QSize size;
    std::array<QImage, 3> images; ///< one is shown, one on its way
};
