// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvlibrary.h"
#include "recordingfile.h"

#include <QByteArray>

#include <memory>
#include <mutex>

/// The one address that the player can open: the bytes of a file that we have opened.
///
/// Must live for as long as the player does that it was added to.
class RecordingStream {
public:
    /// False where that failed. Once per object.
    bool addTo(const MpvLibrary& library, mpv_handle* player);

    /// The address of `file`, which is the only one that leads anywhere from now on; null: none.
    QByteArray lead(std::shared_ptr<RecordingFile> file);

private:
    static int open(void* stream, char* address, mpv_stream_cb_info* info);

    std::mutex mutex;
    std::shared_ptr<RecordingFile> file;
    int number = 0;
};
