// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "packetreader.h"

#include "headerbounds.h"
#include "logging.h"
#include "refuseddemuxers.h"

extern "C" {
#include <libavutil/parseutils.h>
}

#include <algorithm>
#include <array>
#include <cstring>

namespace {

int askInterrupt(void* reader) {
    return static_cast<const PacketReader*>(reader)->isInterrupted() ? 1 : 0;
}

/// What demuxers ask for another file than the named one.
int refuseOtherFile(AVFormatContext*, AVIOContext**, const char* url, int, AVDictionary**) {
    qCDebug(engineLog, "not opened: %s", url);
    return AVERROR(EACCES);
}

/// The name as demuxers see it, who need its extension. Characters that make it a pattern of other
/// names are gone, so that the file is what its content says.
QByteArray plainName(QByteArray name) {
    for (char& character : name) {
        if (std::strchr("%*?[]{}", character))
            character = '_';
    }
    return name;
}

QString pipeText() {
    return QStringLiteral("a pipe cannot be read again");
}

int firstVideoStream(const AVFormatContext& format) {
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        if (format.streams[i]->codecpar->codec_type == AVMEDIA_TYPE_VIDEO)
            return int(i);
    }
    return -1;
}

} // namespace

QString libavErrorText(int code) {
    if (code == AVERROR(ENOMEM))
        return QStringLiteral("out of memory"); // as it is told wherever memory is short
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return QString::fromUtf8(text.data());
}

PacketReader::~PacketReader() {
    close();
}

void PacketReader::setInterrupt(std::function<bool()> newInterrupt) {
    interrupt = std::move(newInterrupt);
}

bool PacketReader::isInterrupted() const {
    return interrupt && interrupt();
}

bool PacketReader::open(const char* name) {
    const LibavErrorScope scope(errors);
    close();
    fileName = name;
    file = std::make_unique<InputFile>([this] { return isInterrupted(); });
    int result = file->open(fileName.constData());
    const bool isOpen = result >= 0;
    if (isOpen)
        result = openDemuxer();
    if (result >= 0)
        result = avformat_find_stream_info(format, nullptr);
    if (result < 0) {
        hasFlaw = isOpen && result != AVERROR(ENOMEM) && file->bytes()->error >= 0;
        if (error.isEmpty())
            error = libavErrorText(result);
        return false;
    }
    av_dump_format(format, 0, fileName.constData(), 0);
    const bool isProbed = format->pb->error >= 0;
    // What failed while the file was probed is tried again when its turn comes.
    format->pb->error = 0;
    errorsWhenOpened = libavErrors();
    streamIndex = firstVideoStream(*format);
    hasFlaw = streamIndex < 0 && isProbed;
    if (streamIndex < 0)
        error = QStringLiteral("no video stream");
    return streamIndex >= 0;
}

const AVInputFormat* PacketReader::demuxerOf(const char* name) {
    close();
    fileName = name;
    file = std::make_unique<InputFile>([this] { return isInterrupted(); });
    const AVInputFormat* demuxer = nullptr;
    int result = file->open(fileName.constData());
    if (result >= 0 && !file->canSeek())
        error = pipeText();
    else if (result >= 0)
        result = findDemuxer(demuxer);
    if (result < 0 && error.isEmpty())
        error = libavErrorText(result);
    return error.isEmpty() ? demuxer : nullptr;
}

int PacketReader::findDemuxer(const AVInputFormat*& demuxer) {
    const QByteArray name = plainName(fileName);
    // The demuxer is found by itself, so that the libraries never look for one by the name alone:
    // that is how patterns, addresses and devices are opened.
    const int score =
        av_probe_input_buffer2(file->bytes(), &demuxer, name.constData(), nullptr, 0, 0);
    if (score < 0)
        return score;
    error = refusalOf(*demuxer);
    return error.isEmpty() ? 0 : AVERROR(EINVAL);
}

int PacketReader::openDemuxer() {
    const AVInputFormat* demuxer = nullptr;
    const int found = findDemuxer(demuxer);
    if (found < 0)
        return found;
    format = avformat_alloc_context();
    if (!format)
        return AVERROR(ENOMEM);
    format->pb = file->bytes();
    format->interrupt_callback = {askInterrupt, this};
    format->io_open = refuseOtherFile;
    // Nothing is on this list: demuxers that go past `io_open` find no way to another file, either.
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "", 0);
    const QByteArray name = plainName(fileName);
    const int result = avformat_open_input(&format, name.constData(), demuxer, &options);
    av_dict_free(&options);
    if (result >= 0 && hasTooManyUnits(*format)) {
        error = QStringLiteral("its headers hold too many parameter sets");
        return AVERROR_INVALIDDATA;
    }
    return result;
}

bool PacketReader::reopen() {
    if (!canReopen()) {
        close();
        error = pipeText();
        return false;
    }
    return open(QByteArray(fileName).constData());
}

void PacketReader::setWatch(std::function<void(const NumberedPacket&)> newWatch) {
    watch = std::move(newWatch);
}

void PacketReader::close() {
    avformat_close_input(&format);
    file.reset();
    streamIndex = -1;
    watch = nullptr;
    returned.clear();
    nextNumber = 0;
    isKeyframesOnly = false;
    hasEnded = false;
    end = {};
    error.clear();
    hasFlaw = false;
}

std::optional<NumberedPacket> PacketReader::read() {
    if (!returned.empty()) {
        NumberedPacket packet = std::move(returned.front());
        returned.pop_front();
        return packet;
    }
    const LibavErrorScope scope(errors);
    PacketPointer packet(av_packet_alloc());
    while (format && !hasEnded && !isInterrupted()) {
        const int result = packet ? av_read_frame(format, packet.get()) : AVERROR(ENOMEM);
        hasEnded = result < 0;
        if (hasEnded) {
            noteEnd(result);
            break;
        }
        // An empty packet holds no picture, and would tell the decoder that the stream has ended.
        if (packet->stream_index == streamIndex && packet->size > 0 && isWanted(*packet)) {
            NumberedPacket numbered{nextNumber++, std::move(packet)};
            if (watch)
                watch(numbered);
            return numbered;
        }
        av_packet_unref(packet.get());
    }
    return std::nullopt;
}

bool PacketReader::isWanted(const AVPacket& packet) const {
    return !isKeyframesOnly || (packet.flags & AV_PKT_FLAG_KEY) != 0;
}

/// Where the container has a list of its packets, the others are then not even read. MP4 files
/// count wrong what they leave out where pictures are not shown in the order of their packets.
void PacketReader::readKeyFramesOnly() {
    isKeyframesOnly = true;
    for (unsigned i = 0; i < format->nb_streams; ++i)
        format->streams[i]->discard = AVDISCARD_ALL;
    AVStream& stream = *format->streams[streamIndex];
    const bool isCountedWrong =
        std::strstr(format->iformat->name, "mp4") && stream.codecpar->video_delay > 0;
    stream.discard = isCountedWrong ? AVDISCARD_DEFAULT : AVDISCARD_NONKEY;
}

bool PacketReader::seek(std::int64_t dts) {
    const LibavErrorScope scope(errors);
    hasEnded = false;
    end = {};
    return format && file->canSeek() &&
           av_seek_frame(format, streamIndex, dts, AVSEEK_FLAG_BACKWARD) >= 0;
}

/// Tells a failed read from an end, which the demuxer's own answer does not: several answer an I/O
/// error where a file is merely cut off, and the plain end where the disk has failed. What the
/// reading itself ran into stands beside the buffer.
void PacketReader::noteEnd(int result) {
    if (isInterrupted())
        return;
    if (format->pb && format->pb->error < 0)
        end = {ReadEnd::Cause::ReadError, libavErrorText(format->pb->error)};
    else if (result == AVERROR(ENOMEM))
        end = {ReadEnd::Cause::OutOfMemory, libavErrorText(result)};
}

const AVStream* PacketReader::stream() const {
    return streamIndex < 0 ? nullptr : format->streams[streamIndex];
}

qint64 PacketReader::bytePosition() const {
    return format && format->pb ? format->pb->pos : -1;
}

qint64 PacketReader::fileBytes() const {
    return format && format->pb ? avio_size(format->pb) : -1;
}

double PacketReader::duration() const {
    const bool isKnown = format && format->duration > 0;
    return isKnown ? double(format->duration) / AV_TIME_BASE : 0.0;
}

namespace {

/// Matroska has it in a tag.
double taggedSeconds(const AVStream& stream) {
    const AVDictionaryEntry* tag = av_dict_get(stream.metadata, "DURATION", nullptr, 0);
    std::int64_t microseconds = 0;
    const bool isKnown = tag && av_parse_time(&microseconds, tag->value, 1) >= 0;
    return isKnown ? double(microseconds) / AV_TIME_BASE : 0.0;
}

/// What a length in the headers counts from; seconds, as the stream counts them. Most containers
/// tell where the stream ends, and a camera may go on counting from file to file.
double lengthOrigin(const AVFormatContext& format, const AVStream& stream) {
    const bool isOwn =
        std::strstr(format.iformat->name, "mp4") || std::strcmp(format.iformat->name, "ogg") == 0;
    const bool isLater = stream.start_time != AV_NOPTS_VALUE && stream.start_time > 0;
    return isLater && !isOwn ? double(stream.start_time) * av_q2d(stream.time_base) : 0.0;
}

} // namespace

bool PacketReader::hasReadingErrors() const {
    return libavErrors() > errorsWhenOpened;
}

/// The file's own length is that of its video where there is nothing else in it. What was reckoned
/// from the size or looked for at the end of the file is no promise.
double PacketReader::promisedLength() const {
    if (streamIndex < 0 || format->duration_estimation_method != AVFMT_DURATION_FROM_STREAM)
        return 0.0;
    const AVStream& chosen = *format->streams[streamIndex];
    // Of an AVI file that is cut off the demuxer takes the length down, but not the pictures.
    if (std::strcmp(format->iformat->name, "avi") == 0 && chosen.nb_frames > 0)
        return double(chosen.nb_frames) * av_q2d(chosen.time_base);
    const double origin = lengthOrigin(*format, chosen);
    if (chosen.duration != AV_NOPTS_VALUE && chosen.duration > 0)
        return std::max(double(chosen.duration) * av_q2d(chosen.time_base) - origin, 0.0);
    const double tagged = taggedSeconds(chosen);
    const bool isTheFiles = tagged <= 0.0 && format->nb_streams == 1;
    return std::max((isTheFiles ? duration() : tagged) - origin, 0.0);
}

double PacketReader::startTime() const {
    const bool isKnown = format && format->start_time != AV_NOPTS_VALUE;
    return isKnown ? double(format->start_time) / AV_TIME_BASE : 0.0;
}

qint64 PacketReader::libavErrors() const {
    return errors.load(std::memory_order_relaxed);
}

QString PacketReader::errorText() const {
    return error;
}

bool PacketReader::isFileToBlame() const {
    return hasFlaw;
}
