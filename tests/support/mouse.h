// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPoint>
#include <QVector>
#include <QWidget>
#include <QWindow>
#include <QtTest>

/// The mouse as the window system delivers it, at positions of a widget in a window that is shown.
///
/// Unlike QTest's own functions for widgets, whose moves carry no button. The window's very corner
/// (0, 0) cannot be pressed: QTest takes it for its centre.
namespace mouse {

inline QPoint inWindow(const QWidget& widget, const QPoint& position) {
    return widget.mapTo(widget.window(), position);
}

inline void press(QWidget& widget, const QPoint& position,
                  Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(widget.window()->windowHandle(), button, {}, inWindow(widget, position));
}

inline void move(QWidget& widget, const QPoint& position) {
    QTest::mouseMove(widget.window()->windowHandle(), inWindow(widget, position));
}

inline void release(QWidget& widget, const QPoint& position,
                    Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseRelease(widget.window()->windowHandle(), button, {}, inWindow(widget, position));
}

/// A stroke with the left button along all points, the first and last included.
inline void stroke(QWidget& widget, const QVector<QPoint>& points) {
    press(widget, points.first());
    for (const QPoint& point : points)
        move(widget, point);
    release(widget, points.last());
}

} // namespace mouse
