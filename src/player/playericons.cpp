// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playericons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace {

// Signs are drawn in a square of 16 by 16.
constexpr double side = 16.0;

QPainterPath triangle(double left, double right) {
    QPainterPath path(QPointF(left, 3.0));
    path.lineTo(right, side / 2.0);
    path.lineTo(left, side - 3.0);
    path.closeSubpath();
    return path;
}

QPainterPath bar(double left, double width) {
    QPainterPath path;
    path.addRect(left, 3.0, width, side - 6.0);
    return path;
}

QPainterPath mirrored(const QPainterPath& path) {
    return QTransform(-1.0, 0.0, 0.0, 1.0, side, 0.0).map(path);
}

QPainterPath speaker() {
    QPainterPath path(QPointF(2.0, 6.0));
    for (const QPointF& corner : {QPointF(5.0, 6.0), QPointF(9.0, 2.5), QPointF(9.0, 13.5),
                                  QPointF(5.0, 10.0), QPointF(2.0, 10.0)})
        path.lineTo(corner);
    path.closeSubpath();
    return path;
}

QPainterPath filled(PlayerSign sign) {
    switch (sign) {
    case PlayerSign::Play:
        return triangle(4.0, 13.0);
    case PlayerSign::Pause:
        return bar(4.0, 3.0) + bar(9.0, 3.0);
    case PlayerSign::Next:
        return triangle(3.0, 11.0) + bar(11.0, 2.0);
    case PlayerSign::Previous:
        return mirrored(filled(PlayerSign::Next));
    case PlayerSign::StepForward:
        return bar(3.0, 2.0) + triangle(7.0, 13.0);
    case PlayerSign::StepBack:
        return mirrored(filled(PlayerSign::StepForward));
    case PlayerSign::Sound:
    case PlayerSign::Mute:
        return speaker();
    case PlayerSign::Full:
        break;
    }
    return {};
}

QPainterPath stroked(PlayerSign sign) {
    QPainterPath path;
    if (sign == PlayerSign::Sound) {
        path.arcMoveTo(7.0, 4.0, 7.0, 8.0, -50.0);
        path.arcTo(7.0, 4.0, 7.0, 8.0, -50.0, 100.0);
    } else if (sign == PlayerSign::Mute) {
        path.moveTo(11.0, 6.0);
        path.lineTo(15.0, 10.0);
        path.moveTo(15.0, 6.0);
        path.lineTo(11.0, 10.0);
    } else if (sign == PlayerSign::Full) {
        path.addRect(2.5, 3.5, 11.0, 9.0);
    }
    return path;
}

class SignEngine : public QIconEngine {
public:
    SignEngine(PlayerSign sign, const QPalette& palette)
        : sign(sign)
        , palette(palette) {}

    void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor colour = palette.color(group, QPalette::ButtonText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rectangle.topLeft());
        painter->scale(rectangle.width() / side, rectangle.height() / side);
        painter->fillPath(filled(sign), colour);
        painter->strokePath(stroked(sign), QPen(colour, 1.5));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixels(size);
        pixels.fill(Qt::transparent);
        QPainter painter(&pixels);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixels;
    }

    QIconEngine* clone() const override { return new SignEngine(*this); }

private:
    PlayerSign sign;
    QPalette palette;
};

} // namespace

QIcon playerIcon(PlayerSign sign, const QWidget& button) {
    return QIcon(new SignEngine(sign, button.palette()));
}
