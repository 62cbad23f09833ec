// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "visitors.h"

#include <QPainter>
#include <QPainterPath>

namespace {

const QColor fur(52, 46, 44);

void paintPullover(QPainter& painter) {
    painter.save();
    QPainterPath body;
    body.addRoundedRect(-35, -197, 70, 100, 18, 18);
    painter.setClipPath(body, Qt::IntersectClip);
    for (int x = -35; x < 35; x += 10) {
        painter.setBrush((x + 35) % 20 == 0 ? QColor(190, 60, 50) : QColor(240, 235, 225));
        painter.drawRect(x, -197, 10, 100);
    }
    painter.restore();
}

} // namespace

void paintCat(QPainter& painter, double step, double tail) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(fur);
    painter.drawEllipse(QPoint(0, -44), 62, 26);
    painter.drawEllipse(QPoint(66, -70), 22, 20);
    painter.drawPolygon(QPolygon({{50, -80}, {54, -106}, {66, -88}}));
    painter.drawPolygon(QPolygon({{68, -88}, {80, -104}, {84, -78}}));
    int side = 1;
    for (const int x : {-46, -26, 26, 42}) {
        painter.drawRect(QRectF(x + side * step, -34, 10, 34));
        side = -side;
    }
    QPainterPath curve(QPointF(-56, -46));
    curve.cubicTo(-100, -54, -90, -94 - tail, -110 + tail, -104 - tail);
    painter.strokePath(curve, QPen(fur, 10, Qt::SolidLine, Qt::RoundCap));
}

void paintWalker(QPainter& painter, double step) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(205, 165, 135));
    painter.drawEllipse(-18, -243, 36, 44);
    painter.setBrush(QColor(45, 50, 70));
    painter.drawPolygon(QPolygonF({{-21, -105}, {-3, -105}, {-3 - step, 0}, {-21 - step, 0}}));
    painter.drawPolygon(QPolygonF({{3, -105}, {21, -105}, {21 + step, 0}, {3 + step, 0}}));
    paintPullover(painter);
}
