#include "videodecoder.h"

#include "codeccontext.h"
#include "ffmpegmutex.h"
#include "framethreadeddecoder.h"
#include "logging.h"
#include "packetreader.h"
#include "serialdecoder.h"

#include <QMutexLocker>
#include <QThread>

#include <cstdint>
#include <optional>

/// One open file. Exactly one of the two decoders is there once the file is open.
struct DecodingContext {
    PacketReader reader;
    PictureMemory memory; ///< outlives the decoders
    std::unique_ptr<FrameThreadedDecoder> threaded;
    std::unique_ptr<SerialDecoder> serial;
    std::deque<NumberedPacket> replay; ///< packets that the serial decoder takes before reading on
    qint64 lastNumber = -1;            ///< packet that completed the last picture handed out
    QByteArray codecName;              ///< empty until a decoder is open
    QString error;
    ReadEnd end; ///< where the reader does not know it

    bool open(const char* fileName, int threads);
    std::optional<CompletedPicture> nextPicture();

private:
    std::optional<CompletedPicture> nextSerialPicture();
    std::optional<NumberedPacket> nextSerialPacket();
    bool goSerial();
};

bool DecodingContext::open(const char* fileName, int threads) {
    if (!reader.open(fileName)) {
        error = reader.errorText();
        return false;
    }
    QMutexLocker lock(&ffmpegMutex());
    OpenedCodec opened = openCodec(*reader.stream()->codecpar, threads, memory);
    if (!opened.context) {
        error = opened.error;
        return false;
    }
    codecName = avcodec_get_name(opened.context->codec_id);
    if (opened.hasFrameThreads)
        threaded = std::make_unique<FrameThreadedDecoder>(std::move(opened.context));
    else
        serial = std::make_unique<SerialDecoder>(std::move(opened.context), memory);
    return true;
}

std::optional<CompletedPicture> DecodingContext::nextPicture() {
    if (!end.error.isEmpty())
        return std::nullopt;
    if (threaded) {
        FrameThreadedDecoder::Result result = threaded->next(reader);
        // Where many threads found no room, one may.
        if (result.outcome == FrameThreadedDecoder::Outcome::End && !memory.hasFailed())
            return std::nullopt;
        if (result.outcome == FrameThreadedDecoder::Outcome::Picture) {
            lastNumber = result.picture.number;
            return std::move(result.picture);
        }
        if (!goSerial())
            return std::nullopt;
    }
    return serial ? nextSerialPicture() : std::nullopt;
}

std::optional<CompletedPicture> DecodingContext::nextSerialPicture() {
    while (auto next = nextSerialPacket()) {
        PicturePointer picture = serial->decode(*next->packet);
        if (memory.hasFailed()) {
            end = {ReadEnd::Cause::OutOfMemory, memory.errorText()};
            return std::nullopt;
        }
        // Up to that packet the frame threads have already handed everything out.
        if (!picture || next->number <= lastNumber)
            continue;
        lastNumber = next->number;
        return CompletedPicture{next->number, next->packet->dts, std::move(picture)};
    }
    return std::nullopt;
}

std::optional<NumberedPacket> DecodingContext::nextSerialPacket() {
    if (reader.isInterrupted())
        return std::nullopt;
    if (replay.empty())
        return reader.read();
    NumberedPacket packet = std::move(replay.front());
    replay.pop_front();
    return packet;
}

/// Goes on with one thread, just behind the last picture that was handed out.
bool DecodingContext::goSerial() {
    qCDebug(engineLog, "one thread from packet %lld on", static_cast<long long>(lastNumber));
    replay = threaded->takeRestartPackets();
    const int reorderDelay = threaded->reorderDelay();
    QMutexLocker lock(&ffmpegMutex());
    threaded.reset();
    lock.unlock();
    memory.tryAgain();
    if (replay.empty() && !reader.reopen()) {
        end = {ReadEnd::Cause::ReadError, reader.errorText()};
        return false;
    }
    lock.relock();
    OpenedCodec opened = openCodec(*reader.stream()->codecpar, 1, memory);
    if (!opened.context) {
        end = {ReadEnd::Cause::OutOfMemory, opened.error};
        return false;
    }
    // From the start of the file the decoder learns the delay anew, as it did the first time.
    if (!replay.empty() && replay.front().number > 0)
        opened.context->has_b_frames = reorderDelay;
    serial = std::make_unique<SerialDecoder>(std::move(opened.context), memory);
    return true;
}

namespace {

Ratio ratioOf(const AVRational& first, const AVRational& second) {
    const AVRational& known = first.num > 0 && first.den > 0 ? first : second;
    return {known.num, known.den};
}

double timeOf(std::int64_t dts, const AVRational& timeBase) {
    // A missing decoding time is the smallest 64-bit number, which a double holds exactly.
    return double(dts) * (double(timeBase.num) / double(timeBase.den));
}

} // namespace

VideoDecoder::VideoDecoder(int threads)
    : threads(threads > 0 ? threads : qMax(1, QThread::idealThreadCount())) {
    routeLibavLog();
}

VideoDecoder::~VideoDecoder() {
    close();
}

void VideoDecoder::setInterrupt(std::function<bool()> isInterrupted) {
    interrupt = std::move(isInterrupted);
}

bool VideoDecoder::open(const char* fileName) {
    close();
    context = std::make_unique<DecodingContext>();
    context->reader.setInterrupt(interrupt);
    return context->open(fileName, threads);
}

DecodedFrame* VideoDecoder::readFrame(bool clone) {
    auto completed = context ? context->nextPicture() : std::nullopt;
    if (!completed)
        return nullptr;
    AVFrame* picture =
        clone ? av_frame_clone(completed->picture.get()) : completed->picture.release();
    if (!picture) {
        context->end = {ReadEnd::Cause::OutOfMemory, QStringLiteral("out of memory")};
        return nullptr;
    }
    const AVStream* stream = context->reader.stream();
    return new DecodedFrame{timeOf(completed->dts, stream->time_base), picture,
                            completed->dts == AV_NOPTS_VALUE};
}

ReadEnd VideoDecoder::readEnd() const {
    if (!context)
        return {};
    return context->end.error.isEmpty() ? context->reader.readEnd() : context->end;
}

DecodedFrame* VideoDecoder::takeHeldFrame() {
    PicturePointer picture =
        context && context->serial ? context->serial->takeHeld() : PicturePointer();
    if (!picture)
        return nullptr;
    const AVStream* stream = context->reader.stream();
    return new DecodedFrame{timeOf(AV_NOPTS_VALUE, stream->time_base), picture.release(), true};
}

void VideoDecoder::close() {
    if (!context)
        return;
    QMutexLocker lock(&ffmpegMutex());
    context.reset();
}

qint64 VideoDecoder::bytePosition() const {
    return context ? context->reader.bytePosition() : -1;
}

int VideoDecoder::videoStreamIndex() const {
    const AVStream* stream = context ? context->reader.stream() : nullptr;
    return stream ? stream->index : -1;
}

QByteArray VideoDecoder::codecName() const {
    return context ? context->codecName : QByteArray();
}

double VideoDecoder::headerFrameRate() const {
    const AVStream* stream = context ? context->reader.stream() : nullptr;
    if (!stream || stream->start_time != AV_NOPTS_VALUE)
        return 0.0;
    return context->threaded ? context->threaded->frameRate() : context->serial->frameRate();
}

double VideoDecoder::duration() const {
    return context ? context->reader.duration() : 0.0;
}

StreamDescription VideoDecoder::description() const {
    const AVStream* stream = context ? context->reader.stream() : nullptr;
    if (!stream)
        return {};
    const AVCodecParameters& codec = *stream->codecpar;
    return {QSize(codec.width, codec.height),
            ratioOf(stream->sample_aspect_ratio, codec.sample_aspect_ratio),
            ratioOf(stream->avg_frame_rate, stream->r_frame_rate), context->reader.startTime()};
}

QString VideoDecoder::errorText() const {
    return context ? context->error : QString();
}
