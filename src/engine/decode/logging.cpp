// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "logging.h"

#include <QByteArray>

extern "C" {
#include <libavutil/log.h>
}

#include <array>
#include <atomic>
#include <cstdarg>

Q_LOGGING_CATEGORY(engineLog, "kestrova.engine", QtWarningMsg)
Q_LOGGING_CATEGORY(libavLog, "kestrova.libav", QtFatalMsg)

namespace {

std::atomic<qint64> errors{0};

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
    if (level <= AV_LOG_ERROR)
        errors.fetch_add(1, std::memory_order_relaxed);
    if (level > AV_LOG_VERBOSE || !isWanted(level))
        return;
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

} // namespace

void routeLibavLog() {
    static const bool routed = (av_log_set_callback(forward), true);
    Q_UNUSED(routed)
}

qint64 libavErrors() {
    return errors.load(std::memory_order_relaxed);
}
