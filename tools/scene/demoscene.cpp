// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "demoscene.h"

#include "visitors.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int width = 1280;
constexpr int height = 720;
constexpr int horizon = 250;

void paintGround(QPainter& painter) {
    QLinearGradient sky(0, 0, 0, horizon);
    sky.setColorAt(0.0, QColor(143, 181, 209));
    sky.setColorAt(1.0, QColor(214, 227, 232));
    painter.fillRect(0, 0, width, horizon, sky);
    QLinearGradient yard(0, horizon, 0, height);
    yard.setColorAt(0.0, QColor(178, 170, 156));
    yard.setColorAt(1.0, QColor(146, 138, 126));
    painter.fillRect(0, horizon, width, height - horizon, yard);
}

void paintPath(QPainter& painter) {
    QPainterPath path(QPointF(640, 290));
    path.cubicTo(600, 400, 420, 520, 300, height);
    path.lineTo(700, height);
    path.cubicTo(700, 520, 700, 400, 690, 290);
    painter.fillPath(path, QColor(108, 106, 108));
}

void paintFence(QPainter& painter) {
    painter.fillRect(0, 225, width, 8, QColor(120, 88, 60));
    painter.fillRect(0, 265, width, 8, QColor(120, 88, 60));
    for (int x = 8; x < width; x += 34) {
        const bool isGate = x > 610 && x < 700;
        painter.fillRect(x, 200, 20, 95, isGate ? QColor(84, 104, 122) : QColor(146, 108, 74));
    }
}

void paintTree(QPainter& painter) {
    painter.fillRect(1010, 220, 44, 230, QColor(92, 70, 52));
    painter.setBrush(QColor(178, 108, 52));
    painter.drawEllipse(QPoint(1030, 150), 170, 130);
    painter.setBrush(QColor(200, 132, 66));
    painter.drawEllipse(QPoint(980, 120), 95, 75);
}

} // namespace

void paintYard(QPainter& painter) {
    paintGround(painter);
    paintFence(painter);
    paintPath(painter);
    painter.setPen(Qt::NoPen);
    paintTree(painter);
}

QImage demoScene() {
    QImage scene(width, height, QImage::Format_RGB32);
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::Antialiasing);
    paintYard(painter);
    painter.translate(520, 544);
    paintCat(painter);
    return scene;
}
