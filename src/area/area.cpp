// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "area.h"

#include <QImage>
#include <QPainter>
#include <QTransform>

#include <algorithm>

namespace {

constexpr int leastShare = 100;       // of a side
constexpr int longestMaskSide = 1280; // cells are larger than its pixels

QSize leastSize(QSize pictures) {
    return {std::max(1, pictures.width() / leastShare),
            std::max(1, pictures.height() / leastShare)};
}

/// The area stretched from its own rectangle to another.
Area fittedTo(const Area& area, const QRect& rectangle) {
    QTransform stretch;
    stretch.translate(rectangle.x(), rectangle.y());
    stretch.scale(double(rectangle.width()) / area.rectangle.width(),
                  double(rectangle.height()) / area.rectangle.height());
    stretch.translate(-area.rectangle.x(), -area.rectangle.y());
    return {area.pictures, rectangle, stretch.map(area.shape)};
}

QImage maskOf(const Area& area) {
    const QSize size = area.pictures.scaled(
        area.pictures.boundedTo({longestMaskSide, longestMaskSide}), Qt::KeepAspectRatio);
    QImage mask(size.expandedTo({1, 1}), QImage::Format_RGB32);
    mask.fill(Qt::black);
    QPainter painter(&mask);
    painter.scale(double(mask.width()) / area.pictures.width(),
                  double(mask.height()) / area.pictures.height());
    painter.fillPath(area.path(), Qt::white);
    return mask;
}

} // namespace

QPainterPath Area::path() const {
    QPainterPath path;
    if (shape.isEmpty())
        path.addRect(rectangle);
    else
        path.addPolygon(shape);
    path.closeSubpath();
    return path;
}

Area rectangularArea(QSize pictures, const QPointF& from, const QPointF& to) {
    const QRect drawn = QRectF(from, to).normalized().toAlignedRect();
    return {pictures, drawn & QRect({}, pictures), {}};
}

Area shapedArea(QSize pictures, const QPolygonF& line) {
    const QPolygonF inside = line.intersected(QRectF({}, pictures));
    return {pictures, inside.boundingRect().toAlignedRect() & QRect({}, pictures), inside};
}

Area moved(const Area& area, int right, int down) {
    const QSize room = area.pictures - area.rectangle.size();
    const QPoint corner(std::clamp(area.rectangle.x() + right, 0, std::max(0, room.width())),
                        std::clamp(area.rectangle.y() + down, 0, std::max(0, room.height())));
    return fittedTo(area, {corner, area.rectangle.size()});
}

Area resized(const Area& area, int right, int down) {
    const QSize wanted = area.rectangle.size() + QSize(right, down);
    QRect rectangle(area.rectangle.topLeft(), wanted.expandedTo(leastSize(area.pictures)));
    return fittedTo(area, rectangle & QRect({}, area.pictures));
}

RegionOfInterest regionOf(const Area& area, const QVector<QRect>& excluded) {
    RegionOfInterest region;
    region.kind = RegionOfInterest::Kind::Rectangle;
    region.rectangle = area.rectangle;
    region.space = area.pictures;
    region.excluded = excluded;
    if (!area.shape.isEmpty()) {
        region.kind = RegionOfInterest::Kind::Mask;
        region.mask = maskOf(area);
    }
    return region;
}
