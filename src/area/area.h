// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "region.h"

#include <QPainterPath>
#include <QPolygonF>
#include <QRect>
#include <QSize>
#include <QVector>

/// A part of the picture in which a person looks for motion: a rectangle or a free shape, in pixels
/// of pictures of one size.
struct Area {
    QSize pictures;  ///< pixels
    QRect rectangle; ///< around the shape, if there is one
    QPolygonF shape; ///< empty: the rectangle is the area

    bool isEmpty() const { return rectangle.isEmpty(); }
    QPainterPath path() const;
};

/// The area between two corners, in any order, cut at the picture's edges.
Area rectangularArea(QSize pictures, const QPointF& from, const QPointF& to);

/// The area inside a line that is closed from its end to its begin, cut at the picture's edges.
Area shapedArea(QSize pictures, const QPolygonF& line);

/// The area elsewhere, by so many pixels, but inside the picture.
Area moved(const Area& area, int right, int down);

/// The area with its right and lower edge elsewhere; inside the picture, and not smaller than a
/// hundredth of its sides.
Area resized(const Area& area, int right, int down);

/// As it is looked for; `excluded` rectangles have the same pixels.
RegionOfInterest regionOf(const Area& area, const QVector<QRect>& excluded);
