// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "demuxer.h"

#include "headerbounds.h"
#include "logging.h"
#include "refuseddemuxers.h"

#include <array>
#include <cstring>

namespace {

int askInterrupt(void* demuxer) {
    return static_cast<const Demuxer*>(demuxer)->isInterrupted() ? 1 : 0;
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

Demuxer::Demuxer(QByteArray fileName, std::function<bool()> isInterrupted)
    : interrupt(std::move(isInterrupted))
    , fileName(std::move(fileName)) {}

Demuxer::~Demuxer() {
    close();
}

void Demuxer::close() {
    avformat_close_input(&format);
    file.reset();
    streamIndex = -1;
    error.clear();
    hasFlaw = false;
}

bool Demuxer::open() {
    const LibavErrorScope scope(errors);
    close();
    file = std::make_unique<InputFile>([this] { return isInterrupted(); });
    int result = file->open(fileName.constData());
    const bool isOpen = result >= 0;
    if (isOpen)
        result = openFormat();
    if (result >= 0)
        result = avformat_find_stream_info(format, nullptr);
    if (result >= 0)
        chooseStream();
    else
        hasFlaw = isOpen && result != AVERROR(ENOMEM) && file->bytes()->error >= 0;
    if (result < 0 && error.isEmpty())
        error = libavErrorText(result);
    return streamIndex >= 0;
}

void Demuxer::chooseStream() {
    av_dump_format(format, 0, fileName.constData(), 0);
    const bool isProbed = format->pb->error >= 0;
    // What failed while the file was probed is tried again when its turn comes.
    format->pb->error = 0;
    errorsWhenOpened = errors;
    streamIndex = firstVideoStream(*format);
    hasFlaw = streamIndex < 0 && isProbed;
    if (streamIndex < 0)
        error = QStringLiteral("no video stream");
}

const AVInputFormat* Demuxer::findFormat() {
    close();
    file = std::make_unique<InputFile>([this] { return isInterrupted(); });
    const AVInputFormat* found = nullptr;
    int result = file->open(fileName.constData());
    if (result >= 0 && !file->canSeek())
        error = pipeText();
    else if (result >= 0)
        result = findFormat(found);
    if (result < 0 && error.isEmpty())
        error = libavErrorText(result);
    return error.isEmpty() ? found : nullptr;
}

int Demuxer::findFormat(const AVInputFormat*& found) {
    const QByteArray name = plainName(fileName);
    // The demuxer is found by itself, so that the libraries never look for one by the name alone:
    // that is how patterns, addresses and devices are opened.
    const int score =
        av_probe_input_buffer2(file->bytes(), &found, name.constData(), nullptr, 0, 0);
    if (score < 0)
        return score;
    error = refusalOf(*found);
    return error.isEmpty() ? 0 : AVERROR(EINVAL);
}

int Demuxer::openFormat() {
    const AVInputFormat* found = nullptr;
    int result = findFormat(found);
    if (result < 0)
        return result;
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
    result = avformat_open_input(&format, name.constData(), found, &options);
    av_dict_free(&options);
    if (result >= 0 && hasTooManyUnits(*format)) {
        error = QStringLiteral("its headers hold too many parameter sets");
        return AVERROR_INVALIDDATA;
    }
    return result;
}

bool Demuxer::reopen() {
    if (!canReopen()) {
        close();
        error = pipeText();
        return false;
    }
    return open();
}
