// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <optional>

struct AVCodecContext;

/// Says which packet each picture of a decoder comes with, so that no packet has two.
///
/// Of several pictures that one packet completes only the first counts, but for HEVC: where a new
/// sequence begins, newer decoders give away at once all pictures that they held back, where older
/// ones gave one with each packet. There the others come with the packets behind it, which then
/// complete none.
class FramePacing {
public:
    explicit FramePacing(const AVCodecContext& context);

    /// For the decoder's next picture, which packet number `completedBy` has completed: the number
    /// of the packet it comes with, that one or a later one. Nothing: it does not count.
    std::optional<qint64> placeOf(qint64 completedBy);

    /// Forgets all pictures so far.
    void restart() { last = -1; }

private:
    bool isPaced;
    qint64 last = -1; ///< the last place
};
