#pragma once

#include "libavpointers.h"
#include "readend.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QString>

#include <functional>
#include <optional>

/// Opens a media file and reads the packets of its first video stream.
///
/// The caller holds `ffmpegMutex` around `open` and `close`.
class PacketReader {
public:
    PacketReader() = default;
    ~PacketReader();
    PacketReader(const PacketReader&) = delete;
    PacketReader& operator=(const PacketReader&) = delete;

    /// `interrupt` is asked during long reads; when it answers true, reading ends as at end of
    /// file.
    void setInterrupt(std::function<bool()> interrupt);
    bool isInterrupted() const;

    /// Opens `fileName` (UTF-8), closing what was open. False if it is no media file or has no
    /// video stream.
    bool open(const char* fileName);
    void close();

    /// The stream's next packet with any bytes in it; nothing at end of file and on any error, and
    /// from then on nothing more, even where the file could be read on behind the error.
    std::optional<NumberedPacket> read();

    /// Once `read` has answered nothing: why.
    const ReadEnd& readEnd() const { return end; }

    /// The chosen stream; null if there is none.
    const AVStream* stream() const;

    qint64 bytePosition() const; ///< -1 if there is none
    double duration() const;     ///< seconds as the header says, 0 if unknown
    QString errorText() const;   ///< why `open` failed

private:
    void noteEnd(int result);

    std::function<bool()> interrupt;
    AVFormatContext* format = nullptr;
    int streamIndex = -1;
    qint64 nextNumber = 0;
    bool hasEnded = false;
    ReadEnd end;
    QString error;
};

/// What the libraries say of an error code.
QString libavErrorText(int code);
