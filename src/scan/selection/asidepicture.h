// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "asidefile.h"

#include <QImage>

/// A clip's small picture while it waits, outside memory where there is a file for that.
class AsidePicture {
public:
    AsidePicture() = default;
    explicit AsidePicture(const QImage& picture);

    /// The same picture, pixel by pixel; null if there was none, or where it cannot be read back.
    QImage picture() const;

    bool isThere() const { return hasPicture; } ///< there was one

private:
    bool hasPicture = false;
    FilePlacePointer place;          ///< null: it is in `bytes`
    std::vector<std::uint8_t> bytes; ///< encoded without loss
};
