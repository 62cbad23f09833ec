// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipformat.h"
#include "encoderarguments.h"

#include <functional>

/// The recordings in which a clip lies, as one video for the encoder. Its list lies beside the
/// clip for as long as this object lives.
class ConcatSource {
public:
    /// `first`: the video of the clip's own recording, with a folder for its clips. `isEnding` is
    /// asked while one waits.
    ConcatSource(const ClipLine& line, const EncodedVideo& first,
                 const std::function<bool()>& isEnding);
    ~ConcatSource();
    ConcatSource(const ConcatSource&) = delete;
    ConcatSource& operator=(const ConcatSource&) = delete;

    /// Why they cannot be read as one, for a person; empty if they can.
    const QString& failure() const { return error; }

    const EncodedVideo& video() const { return joined; }

private:
    QString formatsOf(const ClipLine& line, const std::function<bool()>& isEnding);

    EncodedVideo joined;
    QString error;
};
