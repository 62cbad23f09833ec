// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellreduction.h"

#include <opencv2/core/hal/intrin.hpp>

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace {

constexpr int mostRowsOfABand = 128; // whose column sums fit into 16 bits with a sign
static_assert(mostRowsOfABand * 255 <= INT16_MAX);

#if CV_SIMD128
/// The sums of 16 columns. Two neighbours are added as one number of 16 bits, and the right one
/// alone: that is quicker than to widen both.
class SixteenColumns {
public:
    void add(const std::uint8_t* pixels) {
        const cv::v_uint16x8 pairs = cv::v_reinterpret_as_u16(cv::v_load(pixels));
        both = cv::v_add_wrap(both, pairs);
        right = cv::v_add_wrap(right, cv::v_shr<8>(pairs));
    }

    void store(std::int16_t* sums) const {
        const cv::v_uint16x8 left = cv::v_sub_wrap(both, cv::v_shl<8>(right));
        cv::v_uint16x8 first;
        cv::v_uint16x8 second;
        cv::v_zip(left, right, first, second);
        cv::v_store(sums, cv::v_reinterpret_as_s16(first));
        cv::v_store(sums + 8, cv::v_reinterpret_as_s16(second));
    }

private:
    cv::v_uint16x8 both = cv::v_setzero_u16();
    cv::v_uint16x8 right = cv::v_setzero_u16();
};

/// The columns of a line of the cache, which is then read once. The same line of the band below is
/// fetched meanwhile: no processor expects that it comes next.
void addSixtyFour(const std::uint8_t* pixels, std::size_t stride, int rows, std::int16_t* sums) {
    SixteenColumns a;
    SixteenColumns b;
    SixteenColumns c;
    SixteenColumns d;
    for (int y = 0; y < rows; ++y, pixels += stride) {
        __builtin_prefetch(pixels + std::size_t(rows) * stride, 0, 2);
        a.add(pixels);
        b.add(pixels + 16);
        c.add(pixels + 32);
        d.add(pixels + 48);
    }
    a.store(sums);
    b.store(sums + 16);
    c.store(sums + 32);
    d.store(sums + 48);
}

void addSixteen(const std::uint8_t* pixels, std::size_t stride, int rows, std::int16_t* sums) {
    SixteenColumns columns;
    for (int y = 0; y < rows; ++y, pixels += stride)
        columns.add(pixels);
    columns.store(sums);
}
#endif

/// The sum of each column of `band`.
void addColumns(const cv::Mat& band, std::int16_t* sums) {
    int x = 0;
#if CV_SIMD128
    for (; x <= band.cols - 64; x += 64)
        addSixtyFour(band.ptr() + x, band.step, band.rows, sums + x);
    for (; x <= band.cols - 16; x += 16)
        addSixteen(band.ptr() + x, band.step, band.rows, sums + x);
#endif
    for (; x < band.cols; ++x) {
        int sum = 0;
        for (int y = 0; y < band.rows; ++y)
            sum += band.ptr(y)[x];
        sums[x] = std::int16_t(sum);
    }
}

#if CV_SIMD128
/// Four numbers whose sum is that of `count` numbers; up to 8 behind them are read, too.
cv::v_int32x4 foldedSum(const std::int16_t* numbers, int count) {
    static constexpr std::int16_t onesAndZeros[16] = {1, 1, 1, 1, 1, 1, 1, 1};
    cv::v_int32x4 sum = cv::v_setzero_s32();
    for (; count > 8; count -= 8, numbers += 8)
        sum += cv::v_dotprod(cv::v_load(numbers), cv::v_load(onesAndZeros));
    return sum + cv::v_dotprod(cv::v_load(numbers), cv::v_load(onesAndZeros + 8 - count));
}
#endif

/// Adds the columns of four cells to the sums of those.
void addFourCells(const std::int16_t* columns, const int* borders, int* sums) {
#if CV_SIMD128
    cv::v_int32x4 folded[4];
    for (int i = 0; i < 4; ++i)
        folded[i] = foldedSum(columns + borders[i], borders[i + 1] - borders[i]);
    cv::v_int32x4 a, b, c, d;
    cv::v_transpose4x4(folded[0], folded[1], folded[2], folded[3], a, b, c, d);
    cv::v_store(sums, cv::v_load(sums) + a + b + c + d);
#else
    for (int i = 0; i < 4; ++i)
        sums[i] = std::accumulate(columns + borders[i], columns + borders[i + 1], sums[i]);
#endif
}

/// Divides sums by how many pixels they have. Multiplied with a reciprocal, and exact below 2^50:
/// half of the distance to the next quotient is more than what is rounded.
class Mean {
public:
    explicit Mean(double pixels)
        : half(pixels / 2 + 0.25)
        , reciprocal(1 / pixels) {}

    /// In sixteenths of a level, halves rounded up.
    std::uint16_t operator()(int sum) const {
        return std::uint16_t((16.0 * sum + half) * reciprocal);
    }

private:
    double half;
    double reciprocal;
};

/// Reduces planes of one width, a row of cells at a time.
class RowReduction {
public:
    RowReduction(int columns, int width)
        : columns(columns)
        , narrowest(width / columns)
        , columnSums(std::size_t(width + 8), 0)
        , cellSums(std::size_t(columns + 3)) {
        // Cells without columns make them up to fours.
        for (int column = 0; column <= columns + 3; ++column)
            borders.push_back(cellBorder(std::min(column, columns), columns, width));
    }

    void reduce(const cv::Mat& plane, std::uint16_t* levels) {
        std::fill(cellSums.begin(), cellSums.end(), 0);
        for (int top = 0; top < plane.rows; top += mostRowsOfABand)
            addBand(plane.rowRange(top, std::min(top + mostRowsOfABand, plane.rows)));
        const Mean means[] = {Mean(double(narrowest) * plane.rows),
                              Mean(double(narrowest + 1) * plane.rows)};
        for (int i = 0; i < columns; ++i)
            levels[i] = means[borders[i + 1] - borders[i] - narrowest](cellSums[i]);
    }

private:
    void addBand(const cv::Mat& band) {
        addColumns(band, columnSums.data());
        for (int i = 0; i < columns; i += 4)
            addFourCells(columnSums.data(), &borders[i], &cellSums[i]);
    }

    int columns;
    int narrowest; ///< cell, in pixels; the others have one more
    std::vector<int> borders;
    std::vector<std::int16_t> columnSums;
    std::vector<int> cellSums;
};

} // namespace

CellPicturePointer reduceToCells(const cv::Mat& plane) {
    auto cells = std::make_shared<CellPicture>();
    cells->grid = cellGridOf(plane.cols, plane.rows);
    const auto [columns, rows] = cells->grid;
    cells->levels.resize(std::size_t(cells->grid.count()));
    RowReduction reduction(columns, plane.cols);
    for (int row = 0; row < rows; ++row)
        reduction.reduce(plane.rowRange(cellBorder(row, rows, plane.rows),
                                        cellBorder(row + 1, rows, plane.rows)),
                         &cells->levels[cells->grid.placeOf(0, row)]);
    return cells;
}

CellPicturePointer cellsOf(const DecodedFrame& frame, LumaPlane& plane) {
    const cv::Mat wrapped = plane.wrap(frame);
    return wrapped.empty() ? nullptr : reduceToCells(wrapped);
}
