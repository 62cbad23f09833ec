// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "playedclip.h"
#include "recordingfile.h"

#include <QByteArray>

#include <functional>
#include <memory>

/// A recording that is about to be played.
struct OpenedRecording {
    std::shared_ptr<RecordingFile> file;
    QByteArray demuxer; ///< the library's name of it
    QString error;      ///< why it cannot be played, for a person; empty: it can
};

/// Reads its beginning, and may wait for a disk. `cut` as for RecordingFile.
OpenedRecording openForPlaying(const PlayedClip& clip, const std::function<void()>& cut);

/// The first picture that an edit list has left; seconds as the player counts.
double editedStart(const QString& fileName);
