// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellreduction.h"

namespace {

std::uint16_t meanOf(const cv::Mat& plane, int left, int right, int top, int bottom) {
    std::uint64_t sum = 0;
    for (int y = top; y < bottom; ++y) {
        const std::uint8_t* row = plane.ptr(y);
        for (int x = left; x < right; ++x)
            sum += row[x];
    }
    const std::uint64_t count = std::uint64_t(right - left) * std::uint64_t(bottom - top);
    return std::uint16_t((sum * 32 + count) / (2 * count));
}

} // namespace

CellPicturePointer reduceToCells(const cv::Mat& plane) {
    auto cells = std::make_shared<CellPicture>();
    cells->grid = cellGridOf(plane.cols, plane.rows);
    const auto [columns, rows] = cells->grid;
    cells->levels.reserve(std::size_t(cells->grid.count()));
    for (int row = 0; row < rows; ++row) {
        const int top = cellBorder(row, rows, plane.rows);
        const int bottom = cellBorder(row + 1, rows, plane.rows);
        for (int column = 0; column < columns; ++column)
            cells->levels.push_back(meanOf(plane, cellBorder(column, columns, plane.cols),
                                           cellBorder(column + 1, columns, plane.cols), top,
                                           bottom));
    }
    return cells;
}

CellPicturePointer cellsOf(const DecodedFrame& frame, LumaPlane& plane) {
    const cv::Mat wrapped = plane.wrap(frame);
    return wrapped.empty() ? nullptr : reduceToCells(wrapped);
}
