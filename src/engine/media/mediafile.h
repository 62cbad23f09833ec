// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "measurement.h"
#include "packetreader.h"

/// One media file: the packets of its first video stream, and what its headers say of that.
class MediaFile {
public:
    /// Opens the file at the path `fileName`; `isOpen` tells whether that went well.
    /// `isInterrupted` is as for `Demuxer`.
    explicit MediaFile(const QByteArray& fileName, std::function<bool()> isInterrupted = {});

    /// Whether there is a video stream.
    bool isOpen() const { return stream() != nullptr; }

    /// Why it is not open, for a person; empty if it is.
    const QString& errorText() const { return demuxer.errorText(); }

    /// Whether it is not open for what the file holds, so that it would be nowhere.
    bool isFileToBlame() const { return demuxer.isFileToBlame(); }

    /// Begins anew at its start. False, and closed, where that is gone.
    bool reopen();

    /// Whether it can be opened again, as pipes cannot.
    bool canReopen() const { return demuxer.canReopen(); }

    PacketReader& packets() { return reader; }
    const PacketReader& packets() const { return reader; }

    /// The chosen stream; null if there is none.
    const AVStream* stream() const { return demuxer.stream(); }

    /// The stream's codec; unknown while closed.
    AVCodecID codec() const;

    /// What the headers say of the stream; nothing while closed.
    StreamFacts facts() const;

    /// The headers tell where the stream begins, or it was seen while the file was opened.
    bool hasTimes() const { return stream() && stream()->start_time != AV_NOPTS_VALUE; }

    /// Seconds that the headers say the stream lasts; 0 if they do not.
    double promisedLength() const;

    /// The file's size, -1 if unknown.
    qint64 bytes() const;

    /// The demuxer's position in the file in bytes, -1 if there is none.
    qint64 bytePosition() const { return demuxer.bytePosition(); }

    /// The container's own bytes were damaged.
    bool hasReadingErrors() const { return demuxer.hasReadingErrors(); }

    /// That the libraries have told of while reading, in all.
    qint64 libavErrors() const { return demuxer.errors.load(std::memory_order_relaxed); }

private:
    double duration() const;
    StreamDescription description() const;

    Demuxer demuxer;
    PacketReader reader{demuxer};
};
