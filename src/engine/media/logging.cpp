// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "logging.h"

#include <QByteArray>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/log.h>
}

#include <array>
#include <cstdarg>
#include <exception>
#include <mutex>

Q_LOGGING_CATEGORY(engineLog, "kestrova.engine", QtWarningMsg)
Q_LOGGING_CATEGORY(libavLog, "kestrova.libav", QtFatalMsg)

namespace {

LibavErrors unowned{0};
thread_local LibavErrors* ofThread = nullptr;

LibavErrors disowned{0};

std::mutex decodersMutex;
DecoderErrors* decoders = nullptr; ///< all of ours

void countError(void* context) {
    const bool isCodec = context && *static_cast<const AVClass**>(context) == avcodec_get_class();
    void* opaque = isCodec ? static_cast<AVCodecContext*>(context)->opaque : nullptr;
    // Decoders that the libraries open by themselves, to look into a file, have none; those that
    // look into ours do so on the thread that reads it.
    if (opaque)
        DecoderErrors::count(opaque);
    else if (ofThread || !isCodec)
        (ofThread ? *ofThread : unowned).fetch_add(1, std::memory_order_relaxed);
}

bool isWanted(int level) {
    if (level <= AV_LOG_ERROR)
        return libavLog().isCriticalEnabled();
    if (level <= AV_LOG_WARNING)
        return libavLog().isWarningEnabled();
    return libavLog().isDebugEnabled();
}

void write(int level, const QByteArray& line) {
    if (level <= AV_LOG_ERROR)
        qCCritical(libavLog, "%s", line.constData());
    else if (level <= AV_LOG_WARNING)
        qCWarning(libavLog, "%s", line.constData());
    else
        qCDebug(libavLog, "%s", line.constData());
}

void forward(void* context, int level, const char* format, va_list arguments) {
    // The libraries write one line in several calls; Qt writes one line per message.
    thread_local QByteArray line;
    thread_local int printPrefix = 1;
    std::array<char, 1024> text{};
    const int length = av_log_format_line2(context, level, format, arguments, text.data(),
                                           int(text.size()), &printPrefix);
    line += text.data();
    const bool isCut = length >= int(text.size());
    if (!line.endsWith('\n') && !isCut && line.size() < 65536)
        return;
    write(level, line.trimmed());
    line.clear();
}

/// What the libraries call. No exception may pass through them.
void take(void* context, int level, const char* format, va_list arguments) {
    if (level <= AV_LOG_ERROR)
        countError(context);
    if (level > AV_LOG_VERBOSE || !isWanted(level))
        return;
    try {
        forward(context, level, format, arguments);
    } catch (const std::exception&) {
        // Without memory a line is lost.
    }
}

} // namespace

DecoderErrors::DecoderErrors() {
    const std::lock_guard lock(decodersMutex);
    next = decoders;
    if (next)
        next->previous = this;
    decoders = this;
}

DecoderErrors::~DecoderErrors() {
    const std::lock_guard lock(decodersMutex);
    (previous ? previous->next : decoders) = next;
    if (next)
        next->previous = previous;
}

void DecoderErrors::count(const void* opaque) {
    const std::lock_guard lock(decodersMutex);
    for (DecoderErrors* decoder = decoders; decoder; decoder = decoder->next) {
        if (decoder == opaque)
            decoder->libavErrors.fetch_add(1, std::memory_order_relaxed);
    }
}

LibavErrorScope::LibavErrorScope(LibavErrors& errors)
    : outer(ofThread) {
    ofThread = &errors;
}

LibavErrorScope::~LibavErrorScope() {
    ofThread = outer;
}

void routeLibavLog() {
    static const bool routed = (av_log_set_callback(take), true);
    Q_UNUSED(routed)
}

void takeBackLibavLog() {
    av_log_set_callback(take);
}

void disownLibavErrors() {
    ofThread = &disowned;
}

qint64 unownedLibavErrors() {
    return unowned.load(std::memory_order_relaxed);
}
