// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "inputfile.h"
#include "logging.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

/// What reads a media file's container, and the file's first video stream.
///
/// No other file is ever opened, whatever the named one says.
class Demuxer {
public:
    /// For the file at the path `fileName`. `isInterrupted`, which may be null, is asked while
    /// opening and reading; when it answers true, opening fails and reading ends.
    Demuxer(QByteArray fileName, std::function<bool()> isInterrupted);
    ~Demuxer();
    Demuxer(const Demuxer&) = delete;
    Demuxer& operator=(const Demuxer&) = delete;

    bool isInterrupted() const { return interrupt && interrupt(); }

    /// Opens the file, closing what was open. False if it is no media file, one that names other
    /// files, or has no video stream.
    bool open();

    /// The container's format, of a file that is not opened for reading packets; null if it cannot
    /// be read as often as one likes, is no media file or one that names other files.
    const AVInputFormat* findFormat();

    /// Opens it once more, from its start. False also where that is gone.
    bool reopen();

    /// Whether it can be opened again, as pipes cannot.
    bool canReopen() const { return file && file->canSeek(); }

    /// Null unless open, and after some failures.
    AVFormatContext* context() const { return format; }

    /// The chosen stream; null if there is none.
    AVStream* stream() const { return streamIndex < 0 ? nullptr : format->streams[streamIndex]; }

    /// Of the demuxer in the file; -1 if there is none.
    qint64 bytePosition() const { return format && format->pb ? format->pb->pos : -1; }

    /// Why the last opening failed, for a person; empty after a success.
    const QString& errorText() const { return error; }

    /// It failed for what the file holds.
    bool isFileToBlame() const { return hasFlaw; }

    /// That the libraries have told of while opening and reading, in all.
    LibavErrors errors{0};

    /// The libraries have told of some since it was opened.
    bool hasReadingErrors() const { return errors > errorsWhenOpened; }

private:
    int findFormat(const AVInputFormat*& found);
    int openFormat();
    void chooseStream();
    void close();

    std::function<bool()> interrupt;
    QByteArray fileName;
    std::unique_ptr<InputFile> file; ///< outlives `format`, which reads from it
    AVFormatContext* format = nullptr;
    int streamIndex = -1;
    qint64 errorsWhenOpened = 0;
    QString error;
    bool hasFlaw = false; ///< the file is at fault
};

/// What the libraries say of an error code.
QString libavErrorText(int code);
