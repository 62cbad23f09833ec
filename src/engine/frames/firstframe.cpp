// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "firstframe.h"

#include "decodingcontext.h"
#include "scaledpicture.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/imgutils.h>
#include <libavutil/mem.h>
}

#include <QFile>
#include <QFileInfo>

#include <array>

namespace {

/// The picture in its own size. Null if it has pixels that cannot be converted, or too many.
QImage rgbImage(const AVFrame& picture) {
    // Rows of the library's own alignment, since the scaler fills them to their end.
    constexpr int alignment = 32;
    std::array<std::uint8_t*, 4> rows{};
    std::array<int, 4> strides{};
    if (av_image_alloc(rows.data(), strides.data(), picture.width, picture.height, AV_PIX_FMT_RGB24,
                       alignment) < 0)
        return {};
    QImage image(rows[0], picture.width, picture.height, strides[0], QImage::Format_RGB888, av_free,
                 rows[0]);
    if (image.isNull()) {
        av_free(rows[0]);
        return {};
    }
    const bool isScaled = scalePicture(picture, {AV_PIX_FMT_RGB24, picture.width, picture.height,
                                                 rows[0], strides[0], SWS_BICUBIC});
    return isScaled ? image : QImage();
}

} // namespace

bool grabFirstFrame(const QString& fileName, QImage* image, QDeadlineTimer deadline) {
    if (!QFileInfo(fileName).isFile())
        return false;
    MediaFile file(QFile::encodeName(fileName), [&deadline] { return deadline.hasExpired(); });
    if (!file.isOpen())
        return false;
    // One picture is not worth the start of many threads.
    DecodingContext decoder(file, {});
    const Frame first = decoder.next();
    AVFramePointer held; // by a recording so short that it ends before the decoder gives one away
    if (!first.isThere())
        held = decoder.takeHeld();
    const AVFrame* picture = first.isThere() ? first.picture->frame : held.get();
    const QImage converted = picture ? rgbImage(*picture) : QImage();
    if (converted.isNull())
        return false;
    *image = converted;
    return true;
}
