// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturewidget.h"

#include <QPainter>

#include <utility>

PictureWidget::PictureWidget(QWidget* parent)
    : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Picture"));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureWidget::setStill(const QImage& picture) {
    still = picture;
    place();
    update();
}

void PictureWidget::setPlayed(const QImage& picture) {
    played = picture;
    update();
}

void PictureWidget::setShape(const QSize& size) {
    if (size == shape)
        return;
    shape = size;
    place();
    Q_EMIT pixelsChanged();
}

void PictureWidget::endPlay() {
    played = {};
    shape = {};
    place();
    update();
}

void PictureWidget::setText(const QString& shown) {
    text = shown;
    setAccessibleDescription(text);
    place();
    update();
}

QRect PictureWidget::pictureRectangle() const {
    if (!text.isEmpty())
        return {};
    return fitted(shape.isEmpty() ? still.size() : shape);
}

QSize PictureWidget::playedPixels() const {
    const QSizeF pixels = QSizeF(fitted(shape).size()) * devicePixelRatioF();
    return pixels.toSize();
}

/// In the middle, as large as there is room for.
QRect PictureWidget::fitted(const QSize& shape) const {
    if (shape.isEmpty())
        return {};
    QRect rectangle(QPoint(), shape.scaled(size(), Qt::KeepAspectRatio));
    rectangle.moveCenter(rect().center());
    return rectangle;
}

void PictureWidget::place() {
    const QRect now = pictureRectangle();
    if (std::exchange(placed, now) != now)
        Q_EMIT pictureMoved();
}

void PictureWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
    Q_EMIT pixelsChanged();
}

void PictureWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), text.isEmpty() ? QColor(Qt::black) : palette().color(QPalette::Base));
    const QImage& picture = shape.isEmpty() ? still : played;
    if (text.isEmpty() && !picture.isNull())
        painter.drawImage(pictureRectangle(), picture);
    painter.setPen(palette().color(QPalette::Text));
    constexpr int margin = 8;
    painter.drawText(rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, text);
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void PictureWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void PictureWidget::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}
