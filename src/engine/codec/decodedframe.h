// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <cstdint>
#include <memory>

struct AVFrame;

/// One decoded picture with its time. Owned by whoever has it; released with `freeFrame` only.
struct DecodedFrame {
    double time;    ///< seconds; the decoding time of the packet that completed the picture
    AVFrame* frame; ///< the picture; owned

    const std::uint8_t* data() const; ///< first byte of the top row of plane 0; may be null
    int stride() const; ///< bytes from one row of plane 0 to the next; negative if stored bottom-up
    int width() const;  ///< pixels
    int height() const; ///< pixels

    qint64 bytes() const; ///< that it holds
};

/// Releases the picture and the record. Null is allowed.
void freeFrame(DecodedFrame* record);

struct FrameDeleter {
    void operator()(DecodedFrame* record) const { freeFrame(record); }
};

using FramePointer = std::unique_ptr<DecodedFrame, FrameDeleter>;
