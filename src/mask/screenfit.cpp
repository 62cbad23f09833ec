// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screenfit.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <QStyle>

namespace {

/// The largest size that the screen has room for, the window's frame left out. The frame is guessed
/// until the window manager has made it.
QSize screenRoom(const QWidget& window) {
    QSize frame = window.frameSize() - window.size();
    if (frame.isNull())
        frame.setHeight(window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window));
    return window.screen()->availableSize() - frame;
}

} // namespace

ScreenFit::ScreenFit(QWidget& window)
    : QObject(&window)
    , window(window)
    , fullMinimumSize(window.minimumSize()) {
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        window.installEventFilter(this);
}

bool ScreenFit::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        isFitted = false;
        fit();
    } else if (event->type() == QEvent::ActivationChange && !isFitted && window.isActiveWindow()) {
        isFitted = true;
        fit();
    }
    return false;
}

void ScreenFit::fit() {
    const QSize room = screenRoom(window);
    if (!fullMinimumSize.isNull())
        window.setMinimumSize(
            fullMinimumSize.boundedTo(room).expandedTo(window.layout()->totalMinimumSize()));
    if (!window.isMaximized() && !window.isFullScreen())
        window.resize(window.size().boundedTo(room));
}
