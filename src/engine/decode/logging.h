// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLoggingCategory>
#include <QtGlobal>

/// The engine's own messages: "kestrova.engine". Warnings are on, debug lines are off.
Q_DECLARE_LOGGING_CATEGORY(engineLog)

/// What the media libraries say: "kestrova.libav". All of it is off, since a damaged file can make
/// them say thousands of lines; QT_LOGGING_RULES="kestrova.libav.debug=true" and its like turn it
/// on.
Q_DECLARE_LOGGING_CATEGORY(libavLog)

/// Sends the media libraries' log to `libavLog`. May be called any number of times, by any thread.
void routeLibavLog();

/// How many errors the media libraries have told of since the program began, of whatever recording:
/// where that grows, something was damaged, though what came of it may not say so.
qint64 libavErrors();
