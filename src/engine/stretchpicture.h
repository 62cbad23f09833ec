// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clippicture.h"
#include "stretchedpicture.h"

#include <map>

class StretchPicture;

/// Those pictures of one stretch that can still become a snapshot and have no small picture yet, by
/// their places in the stretch.
using StretchCandidates = std::map<int, StretchPicture*>;

/// A picture of a stretch that can still become a snapshot. Where its small picture was not made
/// when it was decoded, its stretch is decoded once more, for all its candidates at once. The
/// recording's decoder must be there until then.
class StretchPicture : public ClipPicture {
public:
    /// `candidates` are those of the same stretch.
    StretchPicture(StretchedPicture picture, std::shared_ptr<StretchCandidates> candidates);
    ~StretchPicture() override;
    StretchPicture(const StretchPicture&) = delete;
    StretchPicture& operator=(const StretchPicture&) = delete;

    QImage snapshot() override;
    QString flaw() const override { return error; }

    /// Makes the small picture only where too many packets are kept for large ones: it costs more
    /// than these do.
    void shrink() override;

private:
    void makeSmall();
    void decodeAll();
    void setSmall(QImage image);

    StretchedPicture picture; ///< without a stretch once the small picture is made
    std::shared_ptr<StretchCandidates> candidates;
    QImage small;
    QString error;
};

/// Makes the handles of a recording's stretched pictures, in their order.
class StretchHandles {
public:
    ClipPicturePointer handleOf(const StretchedPicture& picture);

private:
    std::weak_ptr<const Stretch> stretch; ///< that of the last one
    std::shared_ptr<StretchCandidates> candidates;
};
