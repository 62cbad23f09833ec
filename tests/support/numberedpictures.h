// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "media.h"

#include <QColor>
#include <QImage>
#include <QtGlobal>

/// Recordings whose pictures can be told apart by their grey, as they are shown too.
namespace numbered {

constexpr int count = 75;
constexpr int framesPerSecond = 25;
constexpr int darkest = 30; // of luma, which is 16 where a screen is black
constexpr int step = 2;

inline bool encode(const QString& fileName, const QStringList& codec) {
    QList<QImage> pictures;
    for (int number = 0; number < count; ++number)
        pictures.append(media::grey(160, 120, darkest + step * number));
    return media::encodeLuma(fileName, pictures, framesPerSecond, codec);
}

/// Which picture is seen at this place; -1 if none is.
inline int numberAt(const QImage& image, const QPoint& place) {
    const int grey = image.isNull() ? 0 : qGray(image.pixel(place));
    const double luma = 16.0 + grey * 219.0 / 255.0;
    return luma < darkest - step ? -1 : qRound((luma - darkest) / step);
}

inline int numberIn(const QImage& image) {
    return numberAt(image, image.rect().center());
}

} // namespace numbered
