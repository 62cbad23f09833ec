// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellregion.h"

#include "cellgroups.h"
#include "opencvfailure.h"

#include <opencv2/core.hpp>

#include <algorithm>

namespace {

constexpr int sideOfCell = 8; // pixels, where the pictures' own are not known
constexpr int mostMaskPixels =
    1 << 25; // pictures above that are told by cells of that side as well
constexpr int shareOfPicture = 4;

QSize sizeFor(QSize pictures, CellGrid grid) {
    const bool isOwn = cellGridOf(pictures.width(), pictures.height()) == grid &&
                       qint64(pictures.width()) * pictures.height() <= mostMaskPixels;
    return isOwn ? pictures : QSize(grid.columns, grid.rows) * sideOfCell;
}

cv::Rect pixelsOf(int column, int row, CellGrid grid, QSize size) {
    const cv::Point begin(cellBorder(column, grid.columns, size.width()),
                          cellBorder(row, grid.rows, size.height()));
    const cv::Point end(cellBorder(column + 1, grid.columns, size.width()),
                        cellBorder(row + 1, grid.rows, size.height()));
    return {begin, end};
}

int selectedIn(const PreparedRegion& region, const cv::Rect& cell) {
    switch (region.kind) {
    case RegionOfInterest::Kind::Rectangle:
        return (region.roi & cell).area();
    case RegionOfInterest::Kind::Mask:
        return cv::countNonZero(region.maskMat(cell));
    case RegionOfInterest::Kind::WholeFrame:
        break;
    }
    return cell.area();
}

CellBits selectedCells(const RegionOfInterest& region, QSize pictures, CellGrid grid) {
    CellBits half(grid);
    CellBits touched(grid);
    if (grid.count() == 0)
        return half;
    const QSize size = sizeFor(pictures, grid);
    RegionOfInterest fitted = region;
    if (fitted.space.isEmpty())
        fitted.space = pictures;
    const PreparedRegion prepared = prepareRegion(fitted, size.width(), size.height());
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const cv::Rect cell = pixelsOf(column, row, grid, size);
            const int selected = selectedIn(prepared, cell);
            if (selected > 0)
                touched.add(column, row);
            if (selected > 0 && 2 * selected >= cell.area())
                half.add(column, row);
        }
    }
    return half.count() > 0 ? half : touched;
}

} // namespace

CellBits cellsOf(const RegionOfInterest& region, QSize pictures, CellGrid grid) {
    try {
        return selectedCells(region, pictures, grid);
    } catch (const cv::Exception& exception) {
        noteFailure(exception);
    }
    return CellBits(grid);
}

int wholeOf(const CellBits& region) {
    return std::min(region.grid.count(), shareOfPicture * region.count());
}

QVector<QRect> boxesOf(const CellBits& cells, QSize pictures) {
    const auto [columns, rows] = cells.grid;
    QVector<QRect> boxes;
    CellGroups groups;
    for (const CellGroup& group : groups.find(cells, 1)) {
        const QPoint begin(cellBorder(group.left, columns, pictures.width()),
                           cellBorder(group.top, rows, pictures.height()));
        const QPoint end(cellBorder(group.right + 1, columns, pictures.width()),
                         cellBorder(group.bottom + 1, rows, pictures.height()));
        boxes.append(QRect(begin, end - QPoint(1, 1)));
    }
    return boxes;
}
