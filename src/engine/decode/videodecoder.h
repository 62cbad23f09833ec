#pragma once

#include "decodedframe.h"
#include "readend.h"
#include "streamdescription.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>

struct DecodingContext;

/// Reads one video file picture by picture: the first video stream by index, decoded in order.
///
/// Used from one thread at a time. Takes `ffmpegMutex` where a decoder is opened or closed.
/// Calling order: construct, `open`, `readFrame` until it answers null, `close`.
class VideoDecoder {
public:
    /// `threads`: how many threads may decode; 0 = as many as the machine has cores. Undamaged
    /// streams give the same pictures with the same times at every number. Damaged ones give
    /// pictures of the same number and times, but for rare heavy damage; what a concealed area
    /// shows may differ, as it may between two runs on one thread.
    explicit VideoDecoder(int threads = 0);
    ~VideoDecoder();
    VideoDecoder(const VideoDecoder&) = delete;
    VideoDecoder& operator=(const VideoDecoder&) = delete;

    /// Asked while a file is opened and read, also while that waits for data; when it answers true,
    /// the open fails, and the read ends as at end of file. Set it before `open`.
    void setInterrupt(std::function<bool()> isInterrupted);

    /// Opens the file at the path `fileName` (UTF-8) and never any other, closing what was open.
    /// False if there is no readable video stream or no decoder for it; `errorText` then says why.
    bool open(const char* fileName);

    /// The next picture, or null at end of file and on any read error; `readEnd` tells which.
    ///
    /// Pictures still inside the decoder when the file ends are not delivered. With `clone` the
    /// record holds its own reference to the picture, otherwise the decoder's frame itself; the
    /// caller owns the record either way.
    DecodedFrame* readFrame(bool clone);

    /// Once `readFrame` has answered null: why.
    ReadEnd readEnd() const;

    /// Once `readFrame` has answered null, of a decoder with one thread: the first of the pictures
    /// that are still inside it, without a time; null if there is none. The caller owns the record.
    DecodedFrame* takeHeldFrame();

    /// Closes the file. Safe when nothing is open.
    void close();

    /// The demuxer's position in the file in bytes, -1 if there is none.
    qint64 bytePosition() const;

    /// Index of the chosen stream in the file, -1 if nothing is open or it has no video stream.
    int videoStreamIndex() const;

    /// The media libraries' name for the codec, as in "h264"; empty if nothing is open.
    QByteArray codecName() const;

    /// Pictures per second as the stream's own headers tell, where no picture has a time: 0 if they
    /// do not, or if times were seen while the file was opened. Once a picture has been read.
    double headerFrameRate() const;

    /// Length of the file in seconds as its header says, 0 if unknown.
    double duration() const;

    /// What the headers say of the pictures; nothing if nothing is open.
    StreamDescription description() const;

    /// Why the last `open` failed, in a few words for a person; empty after a success.
    QString errorText() const;

private:
    std::unique_ptr<DecodingContext> context; ///< null while nothing is open
    std::function<bool()> interrupt;
    int threads;
};
