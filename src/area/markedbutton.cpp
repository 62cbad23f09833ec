// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "markedbutton.h"

#include <QPainter>

void MarkedButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    constexpr int margin = 3;
    constexpr int thickness = 3;
    const QRect line(margin, height() - margin - thickness, width() - 2 * margin, thickness);
    if (isChecked())
        QPainter(this).fillRect(line, palette().highlight());
}
