// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QString>

#include <memory>

/// A picture that can still become a clip's snapshot, as the segmentation sees it.
class ClipPicture {
public:
    virtual ~ClipPicture() = default;

    /// The small picture. Made when it is first asked for.
    virtual QImage snapshot() = 0;

    /// Once `snapshot` has answered none: why, for a person; empty if it cannot be scaled.
    virtual QString flaw() const { return {}; }

    /// Makes the small picture now and lets go of the large one.
    virtual void shrink() = 0;
};

using ClipPicturePointer = std::shared_ptr<ClipPicture>;
