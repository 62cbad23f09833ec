// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "inputfile.h"
#include "libavpointers.h"
#include "logging.h"
#include "readend.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QByteArray>
#include <QString>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

/// Opens a media file and reads the packets of its first video stream.
///
/// No other file is ever opened, whatever the named one says.
class PacketReader {
public:
    PacketReader() = default;
    ~PacketReader();
    PacketReader(const PacketReader&) = delete;
    PacketReader& operator=(const PacketReader&) = delete;

    /// `interrupt` is asked while opening and reading; when it answers true, opening fails and
    /// reading ends as at end of file.
    void setInterrupt(std::function<bool()> interrupt);
    bool isInterrupted() const;

    /// Opens the file at the path `fileName`, closing what was open. False if it is no media file,
    /// one that names other files, or has no video stream.
    bool open(const char* fileName);

    /// The demuxer for the file at the path `fileName`, which is not opened for reading packets;
    /// null if it cannot be read as often as one likes, is no media file or one that names other
    /// files.
    const AVInputFormat* demuxerOf(const char* fileName);

    /// Opens the same file once more, from its start. False also where that is gone.
    bool reopen();

    void close();

    /// The stream's next packet with any bytes in it; nothing at end of file and on any error, and
    /// from then on nothing more, even where the file could be read on behind the error.
    std::optional<NumberedPacket> read();

    /// Goes to a place from which the stream can be read that is, as far as the container knows, a
    /// key frame at or before `dts`. False if it cannot.
    bool seek(std::int64_t dts);

    /// From now on reads key frames alone. Once open.
    void readKeyFramesOnly();

    /// Whether nothing was read since it was opened.
    bool isAtStart() const { return nextNumber == 0; }

    /// Has everything that is read from the file from now on looked at. Until it is closed.
    void setWatch(std::function<void(const NumberedPacket&)> newWatch);

    /// Has `packets` read again before what follows them.
    void putBack(std::deque<NumberedPacket> packets) { returned = std::move(packets); }

    /// Whether the file can be opened again, as pipes cannot.
    bool canReopen() const { return file && file->canSeek(); }

    /// The file's size, -1 if unknown.
    qint64 fileBytes() const;

    /// Once `read` has answered nothing: why.
    const ReadEnd& readEnd() const { return end; }

    /// The chosen stream; null if there is none.
    const AVStream* stream() const;

    qint64 bytePosition() const;   ///< -1 if there is none
    double duration() const;       ///< seconds as the header says, 0 if unknown
    bool hasReadingErrors() const; ///< the libraries have told of some since it was opened
    /// Seconds that the headers say the stream lasts; 0 if they do not.
    double promisedLength() const;

    double startTime() const;   ///< seconds at which the first of all streams begins
    qint64 libavErrors() const; ///< that the libraries have told of while reading, in all
    QString errorText() const;  ///< why `open` or `demuxerOf` failed
    bool isFileToBlame() const; ///< it failed for what the file holds

private:
    int findDemuxer(const AVInputFormat*& demuxer);
    int openDemuxer();
    void noteEnd(int result);
    bool isWanted(const AVPacket& packet) const;

    std::function<bool()> interrupt;
    LibavErrors errors{0};
    qint64 errorsWhenOpened = 0;
    QByteArray fileName;
    std::unique_ptr<InputFile> file; ///< outlives `format`, which reads from it
    AVFormatContext* format = nullptr;
    int streamIndex = -1;
    std::function<void(const NumberedPacket&)> watch;
    std::deque<NumberedPacket> returned;
    qint64 nextNumber = 0;
    bool isKeyframesOnly = false; ///< nothing but key frames
    bool hasEnded = false;
    ReadEnd end;
    QString error;
    bool hasFlaw = false; ///< the file is at fault
};

/// What the libraries say of an error code.
QString libavErrorText(int code);
