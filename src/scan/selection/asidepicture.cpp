// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "asidepicture.h"

#include <QBuffer>

AsidePicture::AsidePicture(const QImage& picture)
    : hasPicture(!picture.isNull()) {
    QBuffer png;
    if (!hasPicture || !png.open(QIODevice::WriteOnly) || !picture.save(&png, "PNG"))
        return;
    bytes.assign(png.data().cbegin(), png.data().cend());
    place = AsideFile::instance().put(bytes);
    if (place)
        bytes = {};
}

QImage AsidePicture::picture() const {
    std::vector<std::uint8_t> read;
    if (place && !readAt(*place, read))
        return {};
    const std::vector<std::uint8_t>& png = place ? read : bytes;
    return QImage::fromData(png.data(), int(png.size()), "PNG");
}
