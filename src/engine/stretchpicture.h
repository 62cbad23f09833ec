// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clippicture.h"
#include "stretchedpicture.h"

/// A picture of a stretch that can still become a snapshot; it is decoded once more when it does.
/// The recording's decoder must be there until then.
class StretchPicture : public ClipPicture {
public:
    explicit StretchPicture(StretchedPicture picture);

    QImage snapshot() override;

    /// Makes the small picture only where too many packets are kept for large ones: it costs more
    /// than these do.
    void shrink() override;

private:
    void makeSmall();

    StretchedPicture picture; ///< without a stretch once the small picture is made
    QImage small;
};
