// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framebudget.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

#include <limits>
#include <new>

namespace {

/// A buffer, and the account that it is charged to while somebody holds it.
struct Charge {
    AVBufferRef* buffer;
    std::shared_ptr<std::atomic<qint64>> account;
};

void giveBack(void* opaque, std::uint8_t*) {
    auto* charge = static_cast<Charge*>(opaque);
    *charge->account -= qint64(charge->buffer->size);
    av_buffer_unref(&charge->buffer);
    delete charge;
}

/// Puts a buffer that is charged to `account` in the place of `buffer`. False, with nothing
/// changed, without memory.
bool charge(AVBufferRef*& buffer, const std::shared_ptr<std::atomic<qint64>>& account) {
    auto* charge = new (std::nothrow) Charge{buffer, account};
    AVBufferRef* charged =
        charge ? av_buffer_create(buffer->data, buffer->size, giveBack, charge, 0) : nullptr;
    if (!charged) {
        delete charge;
        return false;
    }
    *account += qint64(buffer->size);
    buffer = charged;
    return true;
}

bool chargeAll(AVFrame& frame, const std::shared_ptr<std::atomic<qint64>>& account) {
    for (AVBufferRef*& buffer : frame.buf) {
        if (buffer && !charge(buffer, account))
            return false;
    }
    return true;
}

} // namespace

FrameBudget* FrameBudget::ofOpaque(void* opaque) {
    return static_cast<FrameBudget*>(static_cast<DecoderErrors*>(opaque));
}

FrameBudget::FrameBudget()
    : held(std::make_shared<std::atomic<qint64>>(0)) {}

void FrameBudget::watch(AVCodecContext& context) {
    context.opaque = static_cast<DecoderErrors*>(this);
    context.get_buffer2 = allocateFor;
#if LIBAVCODEC_VERSION_MAJOR < 60
    // Later versions take it for granted.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    context.thread_safe_callbacks = 1;
    QT_WARNING_POP
#endif
}

void FrameBudget::noteShortage() {
    note(Failure::Shortage);
}

void FrameBudget::noteTooLarge() {
    note(Failure::TooLarge);
}

void FrameBudget::note(Failure newFailure) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (failure == Failure::None)
        failure = newFailure;
}

bool FrameBudget::hasFailed() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return failure != Failure::None;
}

QString FrameBudget::errorText() const {
    const std::lock_guard<std::mutex> lock(mutex);
    if (failure == Failure::TooLarge)
        return width > 0 ? tooLargeText(width, height)
                         : QStringLiteral("its pictures become too large");
    return failure == Failure::Shortage ? QStringLiteral("out of memory") : QString();
}

void FrameBudget::tryAgain() {
    const std::lock_guard<std::mutex> lock(mutex);
    failure = Failure::None;
}

int FrameBudget::allocateFor(AVCodecContext* context, AVFrame* frame, int flags) {
    return ofOpaque(context->opaque)->allocate(*context, *frame, flags);
}

int FrameBudget::allocate(AVCodecContext& context, AVFrame& frame, int flags) {
    const std::lock_guard<std::mutex> lock(mutex);
    const qint64 bytes = pictureBytes(frame.format, frame.width, frame.height);
    if (!haveRoom(bytes) || *held + bytes > mostFrameBytes) {
        failure = Failure::TooLarge;
        width = frame.width;
        height = frame.height;
        return AVERROR(ENOMEM);
    }
    int result = avcodec_default_get_buffer2(&context, &frame, flags);
    if (result >= 0 && !chargeAll(frame, held)) {
        for (AVBufferRef*& buffer : frame.buf)
            av_buffer_unref(&buffer);
        result = AVERROR(ENOMEM);
    }
    if (result == AVERROR(ENOMEM))
        failure = Failure::Shortage;
    return result;
}

qint64 pictureBytes(int format, int width, int height) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(AVPixelFormat(format));
    const bool isInMemory = descriptor && (descriptor->flags & AV_PIX_FMT_FLAG_HWACCEL) == 0;
    if (!isInMemory || width < 1 || height < 1)
        return 0;
    const int bytes = av_image_get_buffer_size(AVPixelFormat(format), width, height, 1);
    // Beyond what an int holds there is no size.
    return bytes > 0 ? bytes : std::numeric_limits<int>::max();
}

QString tooLargeText(int width, int height) {
    return QStringLiteral("pictures of %1 x %2 are too large").arg(width).arg(height);
}
