// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"

#include <memory>

class DecodingContext;
class MediaFile;

/// Reads one video file picture by picture: the first video stream by index, decoded in order.
///
/// Used from one thread at a time. Calling order: construct, `open`, `readFrame` until it answers
/// null, `close`. Whoever wants more than that takes a `FrameStream`.
class VideoDecoder {
public:
    VideoDecoder();
    ~VideoDecoder();
    VideoDecoder(const VideoDecoder&) = delete;
    VideoDecoder& operator=(const VideoDecoder&) = delete;

    /// Opens the file at the path `fileName` (UTF-8) and never any other, closing what was open.
    /// False if there is no readable video stream or no decoder for it.
    bool open(const char* fileName);

    /// The next picture, or null at end of file and on any read error.
    ///
    /// Pictures still inside the decoder when the file ends are not delivered. With `clone` the
    /// record holds its own reference to the picture, otherwise the decoder's frame itself; the
    /// caller owns the record either way.
    DecodedFrame* readFrame(bool clone);

    /// Closes the file. Safe when nothing is open.
    void close();

    /// The demuxer's position in the file in bytes, -1 if there is none.
    qint64 bytePosition() const;

    /// Index of the chosen stream in the file, -1 if nothing is open or it has no video stream.
    int videoStreamIndex() const;

    /// Whether the codec is MJPEG, MJPEG-B or Lagarith, whose every picture stands alone.
    bool isIntraCodec() const;

private:
    std::unique_ptr<MediaFile> file;          ///< null while nothing is open
    std::unique_ptr<DecodingContext> context; ///< null without a stream
};
