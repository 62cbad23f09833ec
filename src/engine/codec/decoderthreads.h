// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codectable.h"

struct AVCodecContext;

/// The most threads that a decoder is given.
constexpr int mostDecoderThreads = 16;

/// Sets up `context`, not yet opened, for its `codec_id` and up to `threads` threads (1 or more).
///
/// Only codecs that are known to give the same pictures for the same packets at every thread count
/// use more than one, and frame threads only as many as there is room for pictures of the context's
/// size. Answers what was chosen; one frame thread is One.
DecoderThreading setUpThreads(AVCodecContext& context, int threads);
