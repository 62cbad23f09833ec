#include "snapshotimage.h"

#include "logging.h"

extern "C" {
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

#include <cstdint>

namespace {

constexpr int snapshotWidth = 320;

// QPainter and the icons made from a snapshot end at 16-bit coordinates; a damaged header can ask
// for millions of rows.
constexpr qint64 highestSnapshot = 32767;

int snapshotHeight(const AVFrame& frame) {
    if (frame.width < 1 || frame.height < 1)
        return 0;
    const qint64 height = qint64(frame.height) * snapshotWidth / frame.width;
    return height <= highestSnapshot ? int(height) : 0;
}

} // namespace

QImage snapshotImage(const DecodedFrame& record) {
    const AVFrame& frame = *record.frame;
    const int height = snapshotHeight(frame);
    if (height < 1 || !frame.data[0])
        return {};
    // Asked first, since the scaler aborts on a format that it does not know at all.
    const auto format = AVPixelFormat(frame.format);
    SwsContext* scaler =
        sws_isSupportedInput(format)
            ? sws_getContext(frame.width, frame.height, format, snapshotWidth, height,
                             AV_PIX_FMT_BGRA, SWS_BILINEAR, nullptr, nullptr, nullptr)
            : nullptr;
    if (!scaler) {
        qCDebug(engineLog, "no scaler for pixel format %d", frame.format);
        return {};
    }
    QImage image(snapshotWidth, height, QImage::Format_RGB32);
    if (!image.isNull()) {
        std::uint8_t* const rows[] = {image.bits(), nullptr, nullptr, nullptr};
        const int strides[] = {image.bytesPerLine(), 0, 0, 0};
        sws_scale(scaler, frame.data, frame.linesize, 0, frame.height, rows, strides);
    }
    sws_freeContext(scaler);
    return image;
}
