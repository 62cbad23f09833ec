// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scaledpicture.h"

#include "logging.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <memory>

namespace {

struct ScalerDeleter {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

} // namespace

bool scalePicture(const AVFrame& picture, const ScaleTarget& target) {
    if (picture.width < 1 || picture.height < 1 || !picture.data[0])
        return false;
    // Asked first, since the scaler aborts on a format that it does not know at all.
    const auto format = AVPixelFormat(picture.format);
    const std::unique_ptr<SwsContext, ScalerDeleter> scaler(
        sws_isSupportedInput(format)
            ? sws_getContext(picture.width, picture.height, format, target.width, target.height,
                             target.format, target.filter, nullptr, nullptr, nullptr)
            : nullptr);
    if (!scaler) {
        qCDebug(engineLog, "no scaler for pixel format %d", picture.format);
        return false;
    }
    std::uint8_t* const rows[] = {target.rows, nullptr, nullptr, nullptr};
    const int strides[] = {target.stride, 0, 0, 0};
    return sws_scale(scaler.get(), picture.data, picture.linesize, 0, picture.height, rows,
                     strides) > 0;
}
