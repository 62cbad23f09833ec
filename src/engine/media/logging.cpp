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

Q_LOGGING_CATEGORY(engineLog, "kestrova.engine", QtWarningMsg)
Q_LOGGING_CATEGORY(libavLog, "kestrova.libav", QtFatalMsg)

namespace {

LibavErrors unowned{0};
thread_local LibavErrors* ofThread = nullptr;

/// Of the decoder that tells; null if that is none of ours. Those that the libraries open by
/// themselves, to look into a file, count nothing.
LibavErrors* errorsOf(void* context) {
    const bool isCodec = context && *static_cast<const AVClass**>(context) == avcodec_get_class();
    auto* errors = isCodec
                       ? static_cast<DecoderErrors*>(static_cast<AVCodecContext*>(context)->opaque)
                       : nullptr;
    return errors ? &errors->libavErrors : nullptr;
}

void countError(void* context) {
    LibavErrors* ofDecoder = errorsOf(context);
    LibavErrors* owner = ofDecoder ? ofDecoder : ofThread;
    (owner ? *owner : unowned).fetch_add(1, std::memory_order_relaxed);
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

qint64 unownedLibavErrors() {
    return unowned.load(std::memory_order_relaxed);
}
