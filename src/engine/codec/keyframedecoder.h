// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codeccontext.h"
#include "framedecoder.h"
#include "packetreader.h"

#include <vector>

/// Decodes key frames alone, each as if there were no other, and several at a time.
///
/// Their time is the one at which they are shown, where the stream knows it: what a picture among
/// all others gets as the time of the packet that completed it, but for rare streams.
class KeyframeDecoder : public FrameDecoder {
public:
    /// As many are decoded at a time as there are `contexts`, one or more, which must be open and
    /// use one thread each. `memory` counts their pictures. Both must outlive this object.
    KeyframeDecoder(std::vector<CodecContextPointer> contexts, PacketReader& reader,
                    const FrameBudget& memory);

    /// Those that the decoder refuses are left out.
    Result next() override;

private:
    bool decodeSome();

    std::vector<CodecContextPointer> contexts;
    PacketReader& reader;
    const FrameBudget& memory;
    std::deque<Frame> frames; ///< not yet handed out
};
