// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

struct AVInputFormat;

/// Why what `demuxer` reads is no recording, in a few words for a person; empty if it is one.
///
/// Refused are the demuxers that take their pictures from other files than the one that somebody
/// named, and those that draw text.
QString refusalOf(const AVInputFormat& demuxer);
