// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screenroom.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

QSize screenRoom(const QWidget& window) {
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    QSize frame = window.frameSize() - window.size();
    if (frame.isNull())
        frame.setHeight(window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window));
    return window.screen()->availableSize() - frame;
}
