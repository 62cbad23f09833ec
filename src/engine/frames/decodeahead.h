// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "frame.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

class DecodingContext;

/// Hands out a decoder's frames in order, at the moment or, on a thread of its own, a few ahead.
/// Very large ones are never read ahead.
class DecodeAhead {
public:
    /// `decoder` is this object's alone until the end has been handed out or this is destroyed.
    /// With `isAhead` the interrupt is asked on the other thread, too. Where no other thread can be
    /// had, frames are read at the moment.
    DecodeAhead(DecodingContext& decoder, bool isAhead);

    /// Waits for what the decoder has in hand, no longer.
    ~DecodeAhead();
    DecodeAhead(const DecodeAhead&) = delete;
    DecodeAhead& operator=(const DecodeAhead&) = delete;

    /// The next frame; waits for it. After the end there is none for ever. Whatever reading it
    /// throws is thrown here.
    Frame next();

private:
    void readAll();
    void readOrThrow();
    bool mayRead() const;

    DecodingContext& decoder;

    std::mutex mutex;
    std::condition_variable changed;
    // Under the mutex, for both threads.
    std::deque<Frame> queue; ///< closed by none once the end is reached
    bool isStopping = false;
    bool isWanted = false;     ///< somebody waits for the next frame
    bool areSmall = false;     ///< frames, as far as the last one tells
    std::exception_ptr thrown; ///< what has ended the thread; null: nothing has

    std::thread thread; ///< last: it begins with everything above in place
};
