// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMutex>

/// The process-wide, non-recursive lock around opening and closing decoders.
///
/// FFmpeg's libraries need no such lock since version 4.0: they register nothing at run time any
/// more, and avcodec_open2 takes a lock of its own for codecs that cannot be set up twice at a
/// time. Libraries that were built without threads lack that one; for them this one is held.
///
/// Whoever opens or closes a decoder holds it; never while a file is opened or read, which can wait
/// for data for ever.
QMutex& ffmpegMutex();
