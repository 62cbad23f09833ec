// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// Whether the encoder can cut a clip with these times (seconds from the video's first picture) out
/// of its video.
///
/// It must end behind its start and behind the first picture, and its end and its length must fit
/// the whole seconds that the encoder is told. A start before the first picture is allowed: an
/// early clip's can lie there.
bool canBeCut(double start, double end);
