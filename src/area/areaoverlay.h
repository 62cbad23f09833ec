// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "area.h"

#include <QImage>
#include <QTransform>
#include <QWidget>

/// Lies over a widget that shows pictures of a recording, and has an area drawn on them: with the
/// mouse, or with the arrow keys, which move it, and with Shift make it larger or smaller. Delete
/// and Escape clear it. Whatever else the mouse does reaches the widget below unless one draws.
class AreaOverlay : public QWidget {
    Q_OBJECT

public:
    /// Covers `picture`, whatever its size becomes.
    explicit AreaOverlay(QWidget& picture);

    /// Where the widget below shows pictures, in its coordinates; empty: nowhere.
    void setPlace(const QRect& place);

    /// A picture of the recording, which tells their size and is shown where none is below; null:
    /// there is none to draw on.
    void setStill(const QImage& picture);

    void setArea(const Area& area);
    const Area& area() const { return drawn; }

    void setFreeShape(bool isFree) { isFreeShape = isFree; }
    bool isDrawing() const;

public Q_SLOTS:
    void setDrawing(bool isDrawing);

Q_SIGNALS:
    /// A person has drawn, moved or cleared it.
    void areaChanged();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF shownPlace() const;
    QTransform toWidget() const;
    Area strokeArea() const;
    void change(const Area& area);
    void step(int key, bool isResize);
    void paintArea(QPainter& painter, const Area& area) const;

    QRect place; ///< of the pictures below; empty: the still is shown
    QImage still;
    Area drawn;
    QPolygonF stroke; ///< under way, in pixels of the pictures; empty: none
    bool isFreeShape = false;
};
