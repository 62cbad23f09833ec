// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgeteditor.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPen>

#include <algorithm>

namespace {

constexpr QRgb selectedPixel = 0xFF00FF00;
constexpr int minimumSide = 200;       // more than the margins, so that the scale is finite
constexpr int margins = 100;           // left and right, or top and bottom, together
constexpr int strokeReach = 5;         // widget pixels that a segment's pen may touch beside it
constexpr float ignoredShare = 0.001F; // single precision, as the coverage: 1 in 1000 is ignored

bool isSelected(QRgb pixel) {
    return qGreen(pixel) != 0;
}

/// `rectangle` in image coordinates, its extent positive. A scale of exactly 1 is to Qt a mere
/// translation, which would keep a negative extent.
QRect mappedRectangle(const QTransform& transform, const QRect& rectangle) {
    QRect mapped = transform.mapRect(rectangle);
    if (mapped.width() < 0)
        mapped = {mapped.x() + mapped.width(), mapped.y(), -mapped.width(), mapped.height()};
    if (mapped.height() < 0)
        mapped = {mapped.x(), mapped.y() + mapped.height(), mapped.width(), -mapped.height()};
    return mapped;
}

} // namespace

WidgetEditor::WidgetEditor(QWidget* parent)
    : QWidget(parent) {
    setMinimumHeight(minimumSide);
    setMinimumWidth(minimumSide);
}

void WidgetEditor::setImage(const QImage& picture) {
    dropStroke();
    // The same colours, painted more than twice as fast.
    frame = picture.hasAlphaChannel() ? picture : picture.convertToFormat(QImage::Format_RGB32);
    maskImage = QImage(frame.width(), frame.height(), QImage::Format_ARGB32);
    maskImage.fill(0);
    updateTransform(size());
    update();
}

void WidgetEditor::setRectangleMode(bool isRectangle) {
    rectangleMode = isRectangle;
    clear();
}

void WidgetEditor::clear() {
    maskImage.fill(0);
    regionDrawn = false;
    regionBefore = false;
    roiRectangle = QRect();
    update();
    Q_EMIT roiUpdated();
}

void WidgetEditor::invert() {
    regionDrawn = true;
    regionBefore = true;
    for (int y = 0; y < maskImage.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(maskImage.scanLine(y));
        std::transform(row, row + maskImage.width(), row,
                       [](QRgb pixel) { return isSelected(pixel) ? 0 : selectedPixel; });
    }
    update();
    Q_EMIT roiUpdated();
}

QImage* WidgetEditor::mask() {
    return regionDrawn ? &maskImage : nullptr;
}

QRect* WidgetEditor::roiRect() {
    return regionDrawn && rectangleMode ? &roiRectangle : nullptr;
}

bool WidgetEditor::hasRoi() const {
    return regionDrawn;
}

float WidgetEditor::coverage() const {
    if (maskImage.height() == 0 || maskImage.width() == 0)
        return 0.0F;
    qint64 count = 0;
    for (int y = 0; y < maskImage.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(maskImage.constScanLine(y));
        count += std::count_if(row, row + maskImage.width(), isSelected);
    }
    return float(count) / (float(maskImage.width()) * float(maskImage.height()));
}

void WidgetEditor::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    dropStroke();
    drawing = true;
    regionBefore = regionDrawn;
    regionDrawn = true;
    startPoint = event->pos();
    if (rectangleMode) {
        endPoint = startPoint;
        update();
        return;
    }
    freePath = QPainterPath();
    freePath.moveTo(transform.map(startPoint));
}

void WidgetEditor::mouseReleaseEvent(QMouseEvent* event) {
    if (!drawing)
        return;
    if (rectangleMode) {
        endPoint = event->pos();
        fillRectangle();
    } else {
        fillFreePath(event->pos());
    }
    regionDrawn = coverage() > ignoredShare;
    if (!regionDrawn)
        maskImage.fill(0);
    drawing = false;
    update();
    Q_EMIT roiUpdated();
}

void WidgetEditor::mouseMoveEvent(QMouseEvent* event) {
    if (!drawing)
        return;
    endPoint = event->pos();
    if (rectangleMode) {
        update();
        return;
    }
    freePath.lineTo(transform.map(endPoint));
    // Wider and higher than the segment needs, never smaller.
    update(std::min(endPoint.x(), startPoint.x()) - strokeReach,
           std::min(endPoint.y(), startPoint.y()) - strokeReach,
           std::max(endPoint.x(), startPoint.x()) + strokeReach,
           std::max(endPoint.y(), startPoint.y()) + strokeReach);
    startPoint = endPoint;
}

void WidgetEditor::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), Qt::white);
    const QRectF target = event->rect();
    const QRectF source = transform.mapRect(target);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, frame, source);
    if (regionDrawn) {
        painter.setOpacity(0.4);
        painter.drawImage(target, maskImage, source);
    }
    if (drawing)
        paintStroke(painter);
}

void WidgetEditor::resizeEvent(QResizeEvent* event) {
    updateTransform(event->size());
}

/// The release of the button need not arrive here any more: what is shown next must not take it for
/// the end of a stroke of its own.
void WidgetEditor::hideEvent(QHideEvent*) {
    dropStroke();
}

void WidgetEditor::dropStroke() {
    if (!drawing)
        return;
    drawing = false;
    freePath = QPainterPath();
    regionDrawn = regionBefore;
    update();
}

void WidgetEditor::updateTransform(const QSize& widgetSize) {
    if (frame.isNull())
        return;
    const double width = widgetSize.width();
    const double height = widgetSize.height();
    // Image pixels per widget pixel, along the dimension that leaves less room.
    const double scale =
        std::max(frame.height() / (height - margins), frame.width() / (width - margins));
    transform.reset();
    transform.scale(scale, scale);
    transform.translate((frame.width() / scale - width) * 0.5,
                        (frame.height() / scale - height) * 0.5);
    update();
}

/// The mask becomes the rectangle that was dragged, and nothing else.
void WidgetEditor::fillRectangle() {
    roiRectangle = mappedRectangle(transform, QRect(startPoint, endPoint));
    maskImage.fill(0);
    if (maskImage.isNull())
        return;
    QPainter painter(&maskImage);
    painter.fillRect(roiRectangle, QColor(Qt::green));
}

/// Adds the shape, closed from `position` to its first point, to the mask.
void WidgetEditor::fillFreePath(const QPoint& position) {
    freePath.lineTo(transform.map(position));
    if (!maskImage.isNull()) {
        QPainter painter(&maskImage);
        painter.fillPath(freePath, QBrush(Qt::green, Qt::SolidPattern));
    }
    freePath = QPainterPath();
}

void WidgetEditor::paintStroke(QPainter& painter) const {
    painter.setOpacity(1.0);
    painter.setPen(QPen(Qt::red, 3));
    if (rectangleMode)
        painter.drawRect(QRect(startPoint, endPoint));
    else
        painter.drawPath(transform.inverted().map(freePath));
}
