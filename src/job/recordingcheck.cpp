// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingcheck.h"

#include "video.h"
#include "watchedrecording.h"

#include <QFileInfo>

RecordingCheck::RecordingCheck(const Video& job)
    : fileName(job.fileName)
    , size(job.fileSize)
    , searched(job.news.facts().file) {}

bool RecordingCheck::isUntouched() const {
    return searched ? ::isUntouched(*searched) : presenceBySize() == FilePresence::Same;
}

FilePresence RecordingCheck::presence() const {
    if (!searched)
        return presenceBySize();
    if (::isUntouched(*searched))
        return FilePresence::Same;
    switch (WatchedRecording(searched->stamp, WatchedRecording::Measured::Now).state()) {
    case WatchedRecording::State::Gone:
        return FilePresence::Gone;
    case WatchedRecording::State::Changed:
        return FilePresence::Changed;
    default:
        return FilePresence::Same;
    }
}

QString RecordingCheck::flaw() const {
    switch (presence()) {
    case FilePresence::Gone:
        return tr("the recording is no longer there");
    case FilePresence::Changed:
        return tr("the recording has changed since it was searched");
    default:
        return {};
    }
}

FilePresence RecordingCheck::presenceBySize() const {
    const QFileInfo file(fileName);
    if (!file.isFile())
        return size > 0 ? FilePresence::Gone : FilePresence::Same;
    return file.size() < size ? FilePresence::Changed : FilePresence::Same;
}
