// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpvpicture.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int alignment = 64; // of rows, with which the library is quickest

/// Null without memory.
QImage alignedImage(const QSize& size) {
    const int stride = (size.width() * 4 + alignment - 1) / alignment * alignment;
    void* pixels = std::aligned_alloc(alignment, std::size_t(stride) * std::size_t(size.height()));
    if (!pixels)
        return {};
    return QImage(static_cast<uchar*>(pixels), size.width(), size.height(), stride,
                  QImage::Format_RGB32, std::free, pixels);
}

} // namespace

QImage MpvPicture::draw(const MpvHandle& player) {
    if (size.isEmpty()) {
        skip(player);
        return {};
    }
    QImage& image = freeImage();
    return !image.isNull() && render(player, image, false) ? image : QImage();
}

void MpvPicture::skip(const MpvHandle& player) {
    QImage unused = alignedImage(QSize(1, 1));
    if (!unused.isNull())
        render(player, unused, true);
}

/// One that nobody else holds.
QImage& MpvPicture::freeImage() {
    const auto isFree = [](const QImage& image) { return image.isNull() || image.isDetached(); };
    auto* const found = std::find_if(images.begin(), images.end(), isFree);
    QImage& image = found == images.end() ? images[0] : *found;
    if (image.size() != size || !image.isDetached())
        image = alignedImage(size);
    return image;
}

bool MpvPicture::render(const MpvHandle& player, QImage& image, bool isSkipped) {
    int room[] = {image.width(), image.height()};
    char format[] = "bgr0"; // as QImage has it
    if (Q_BYTE_ORDER == Q_BIG_ENDIAN)
        std::copy_n("0rgb", sizeof format, format);
    auto stride = std::size_t(image.bytesPerLine());
    int isWaiting = 0;
    int skips = isSkipped ? 1 : 0;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_SW_SIZE, room},
                                     {MPV_RENDER_PARAM_SW_FORMAT, format},
                                     {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                     {MPV_RENDER_PARAM_SW_POINTER, image.bits()},
                                     {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &isWaiting},
                                     {MPV_RENDER_PARAM_SKIP_RENDERING, &skips},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    return player.functions().render(player.picture(), parameters) >= 0;
}
