// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "framethreadeddecoder.h"

#include <vector>

/// Decodes key frames alone, each as if there were no other, and several at a time.
///
/// Their time is the one at which they are shown, where the stream knows it: what a picture among
/// all others gets as the time of the packet that completed it, but for rare streams.
class KeyframeDecoder {
public:
    /// As many are decoded at a time as there are `contexts`, one or more, which must be open and
    /// use one thread each.
    explicit KeyframeDecoder(std::vector<CodecContextPointer> contexts);

    /// The next key frame; nothing at the end of the stream and once interrupted. Those that the
    /// decoder refuses are left out.
    std::optional<CompletedPicture> next(PacketReader& reader);

private:
    bool decodeSome(PacketReader& reader);

    std::vector<CodecContextPointer> contexts;
    std::deque<CompletedPicture> pictures; ///< not yet handed out
};
