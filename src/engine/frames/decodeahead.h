// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"
#include "readend.h"

#include <QtGlobal>

#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

class VideoDecoder;

/// A picture and how far into the file the demuxer was when it came out.
struct ReadPicture {
    std::shared_ptr<const DecodedFrame> frame; ///< null at the end
    qint64 bytePosition = -1;
    double headerFrameRate = 0.0; ///< as `VideoDecoder` has it
    ReadEnd end;                  ///< with a null frame: why
};

/// Hands out a decoder's pictures in order, at the moment or, on a thread of its own, a few ahead.
/// Very large pictures are never read ahead.
class DecodeAhead {
public:
    /// `decoder` must be open and is this object's alone until it is destroyed. With `isAhead` the
    /// decoder's interrupt is asked on the other thread, too. Where no other thread can be had,
    /// pictures are read at the moment.
    DecodeAhead(VideoDecoder& decoder, bool isAhead);

    /// Waits for what the decoder has in hand, no longer.
    ~DecodeAhead();
    DecodeAhead(const DecodeAhead&) = delete;
    DecodeAhead& operator=(const DecodeAhead&) = delete;

    /// The next picture; waits for it. After the end it answers the end for ever. Whatever reading
    /// it throws, but for a lack of memory, which is an end, is thrown here.
    ReadPicture next();

private:
    ReadPicture readOne();
    ReadPicture readOrFail();
    void readAll();
    void readOrThrow();
    bool mayRead() const;

    VideoDecoder& decoder;

    std::mutex mutex;
    std::condition_variable changed;
    // Under the mutex, for both threads.
    std::deque<ReadPicture> queue; ///< closed by a null picture once the end is reached
    bool isStopping = false;
    bool isWanted = false;     ///< somebody waits for the next picture
    bool areSmall = false;     ///< pictures, as far as the last one tells
    std::exception_ptr thrown; ///< what has ended the thread; null: nothing has

    std::thread thread; ///< last: it begins with everything above in place
};
