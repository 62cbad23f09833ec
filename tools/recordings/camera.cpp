// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camera.h"

#include <algorithm>

QImage Camera::picture(QImage scene, double light) {
    for (int y = 0; y < scene.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(scene.scanLine(y));
        for (int x = 0; x < scene.width(); ++x) {
            const auto bits = chance();
            const int noise = int(bits & 7) + int(bits >> 3 & 7) - 7;
            const auto seen = [&](int value) {
                return std::clamp(int(value * light) + noise, 0, 255);
            };
            line[x] = qRgb(seen(qRed(line[x])), seen(qGreen(line[x])), seen(qBlue(line[x])));
        }
    }
    return scene;
}
