// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QPoint>
#include <QPolygon>
#include <QRect>
#include <QSize>

#include <algorithm>
#include <cmath>
#include <utility>

/// Where a mask editor shows a picture, reckoned from its centre: the picture is fitted into the
/// widget less 50 pixels on either side, and its centre lies on the widget's centre.
class EditorPlacement {
public:
    EditorPlacement(const QSize& picture, const QSize& widget)
        : picture(picture)
        , widget(widget)
        , scale(std::max(picture.width() / (widget.width() - 100.0),
                         picture.height() / (widget.height() - 100.0))) {}

    /// The picture's coordinates of a widget's point, unrounded.
    QPointF toPicture(const QPointF& point) const {
        return {(point.x() - widget.width() / 2.0) * scale + picture.width() / 2.0,
                (point.y() - widget.height() / 2.0) * scale + picture.height() / 2.0};
    }

    /// The widget's point that comes nearest to the picture's.
    QPoint toWidget(const QPointF& point) const {
        return {
            int(std::lround((point.x() - picture.width() / 2.0) / scale + widget.width() / 2.0)),
            int(std::lround((point.y() - picture.height() / 2.0) / scale + widget.height() / 2.0))};
    }

    /// The picture's pixel at a widget's point.
    QPoint pixel(const QPoint& point) const {
        const QPointF exact = toPicture(point);
        return {nearest(exact.x()), nearest(exact.y())};
    }

    /// The rectangle that a drag selects. Both its points belong to it; along an axis on which it
    /// went left or up, neither does.
    QRect rectangle(const QPoint& from, const QPoint& to) const {
        const QPoint corner = pixel(from);
        const auto [x, width] = span(corner.x(), to.x() - from.x() + 1);
        const auto [y, height] = span(corner.y(), to.y() - from.y() + 1);
        return {x, y, width, height};
    }

    QSize picture;
    QSize widget;
    double scale; ///< picture pixels per widget pixel

private:
    static int nearest(double value) { return int(std::floor(value + 0.5)); }

    std::pair<int, int> span(int begin, int extent) const {
        const int length = nearest(std::abs(extent) * scale);
        return {extent < 0 ? begin - length : begin, length};
    }
};

/// A mask in which `isSelected(x, y)` decides over each pixel.
template<class Predicate>
QImage maskOf(const QSize& size, Predicate isSelected) {
    QImage mask(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            mask.setPixel(x, y, isSelected(x, y) ? 0xFF00FF00 : 0x00000000);
    }
    return mask;
}

inline QImage maskOf(const QSize& size, const QRect& selected) {
    return maskOf(size, [&](int x, int y) { return selected.contains(x, y); });
}

/// Whether the point lies inside the closed polygon by the odd-even rule.
inline bool isInside(const QPolygon& polygon, double x, double y) {
    bool inside = false;
    for (int i = 0; i < polygon.size(); ++i) {
        const QPointF a = polygon[i];
        const QPointF b = polygon[(i + 1) % polygon.size()];
        if ((a.y() > y) != (b.y() > y) &&
            x < (b.x() - a.x()) * (y - a.y()) / (b.y() - a.y()) + a.x())
            inside = !inside;
    }
    return inside;
}

/// How far the point lies from the closed polygon's nearest edge.
inline double edgeDistance(const QPolygon& polygon, double x, double y) {
    double nearest = 1e9;
    for (int i = 0; i < polygon.size(); ++i) {
        const QPointF a = polygon[i];
        const QPointF edge = QPointF(polygon[(i + 1) % polygon.size()]) - a;
        const QPointF way(x - a.x(), y - a.y());
        const double square = QPointF::dotProduct(edge, edge);
        const double share =
            square > 0 ? std::clamp(QPointF::dotProduct(way, edge) / square, 0.0, 1.0) : 0.0;
        const QPointF offset = way - edge * share;
        nearest = std::min(nearest, std::hypot(offset.x(), offset.y()));
    }
    return nearest;
}
