// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "logging.h"

#include <QString>
#include <QtGlobal>

#include <atomic>
#include <memory>
#include <mutex>

struct AVCodecContext;
struct AVFrame;

/// The most bytes that all pictures of one recording take together, inside the decoder and outside.
constexpr qint64 mostFrameBytes = 1000 * 1000 * 1000;

/// Larger pictures are let go as soon as they have been measured, and none is decoded ahead.
constexpr qint64 largestKeptPicture = 32 * 1024 * 1024;

/// Keeps the pictures of one recording within `mostFrameBytes`, two of them being the least that
/// there must be room for.
///
/// A picture counts for as long as anybody holds it, also when the decoder and this object are
/// gone. Any thread may decode.
class FrameBudget : public DecoderErrors {
public:
    FrameBudget();

    /// The pictures of `context`, not yet opened, count. This object must outlive it.
    void watch(AVCodecContext& context);

    /// Notes that the decoder found no room for something else.
    void noteShortage();

    /// Notes that the decoder, which allocates by itself, refused a picture for its size.
    void noteTooLarge();

    bool hasFailed() const;

    /// Why a picture found no room, for a person; empty if all did.
    QString errorText() const;

    /// Forgets a failure.
    void tryAgain();

private:
    enum class Failure { None, TooLarge, Shortage };

    static FrameBudget* ofOpaque(void* opaque);
    static int allocateFor(AVCodecContext* context, AVFrame* frame, int flags);
    void note(Failure failure);
    int allocate(AVCodecContext& context, AVFrame& frame, int flags);

    std::shared_ptr<std::atomic<qint64>> held; ///< bytes of all pictures
    mutable std::mutex mutex;
    Failure failure = Failure::None;
    int width = 0; ///< pixels, of the picture that was too large; 0 if unknown
    int height = 0;
};

/// The bytes that a picture takes; 0 if that cannot be told. `format`, an AVPixelFormat.
qint64 pictureBytes(int format, int width, int height);

/// What a person is told of pictures for which there is never room.
QString tooLargeText(int width, int height);

/// Whether there is room for two pictures of this many bytes.
constexpr bool haveRoom(qint64 bytes) {
    return bytes <= mostFrameBytes / 2;
}
