// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLoggingCategory>
#include <QtGlobal>

#include <atomic>

/// The engine's own messages: "kestrova.engine". Warnings are on, debug lines are off.
Q_DECLARE_LOGGING_CATEGORY(engineLog)

/// What the media libraries say: "kestrova.libav". All of it is off, since a damaged file can make
/// them say thousands of lines; QT_LOGGING_RULES="kestrova.libav.debug=true" and its like turn it
/// on.
Q_DECLARE_LOGGING_CATEGORY(libavLog)

/// Sends the media libraries' log to `libavLog`. May be called any number of times, by any thread.
void routeLibavLog();

/// The same where a library may have sent it elsewhere since, as players do.
void takeBackLibavLog();

/// How many errors the media libraries have told of one recording: where that grows, something was
/// damaged, though what came of it may not say so.
using LibavErrors = std::atomic<qint64>;

/// Where decoders, which have threads of their own, tell of errors: the `opaque` of each context.
/// Known by its address, since other users of the libraries, as players, have contexts, too.
struct DecoderErrors {
    DecoderErrors();
    ~DecoderErrors();
    DecoderErrors(const DecoderErrors&) = delete;
    DecoderErrors& operator=(const DecoderErrors&) = delete;

    /// One more for the one at `opaque`; nothing where that is none of ours.
    static void count(const void* opaque);

    LibavErrors libavErrors{0};

private:
    DecoderErrors* previous = nullptr;
    DecoderErrors* next = nullptr;
};

/// Whose errors are those that the libraries tell of on the calling thread, for as long as it
/// lives, where no decoder tells of them.
class LibavErrorScope {
public:
    explicit LibavErrorScope(LibavErrors& errors);
    ~LibavErrorScope();
    LibavErrorScope(const LibavErrorScope&) = delete;
    LibavErrorScope& operator=(const LibavErrorScope&) = delete;

private:
    LibavErrors* outer;
};

/// What the libraries tell of on the calling thread is nobody's from now on: it is not one of ours.
void disownLibavErrors();

/// Errors that nobody can be found for; they may be of any recording.
qint64 unownedLibavErrors();
