// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "differencesum.h"

#include <opencv2/core/hal/intrin.hpp>

#include <cstdint>
#include <cstdlib>

namespace {

std::uint64_t rowSum(const std::uint8_t* previous, const std::uint8_t* current,
                     const std::uint8_t* mask, int columns, int threshold) {
    std::uint64_t sum = 0;
    int x = 0;
#if CV_SIMD128
    const cv::v_uint8x16 limit = cv::v_setall_u8(std::uint8_t(threshold));
    const cv::v_uint8x16 zero = cv::v_setzero_u8();
    for (; x <= columns - cv::v_uint8x16::nlanes; x += cv::v_uint8x16::nlanes) {
        cv::v_uint8x16 difference =
            cv::v_absdiff(cv::v_load(previous + x), cv::v_load(current + x));
        difference &= difference > limit;
        if (mask)
            difference &= cv::v_load(mask + x);
        sum += cv::v_reduce_sad(difference, zero);
    }
#endif
    for (; x < columns; ++x) {
        const int difference = std::abs(int(previous[x]) - int(current[x]));
        if (difference > threshold && (!mask || mask[x]))
            sum += std::uint64_t(difference);
    }
    return sum;
}

} // namespace

std::uint64_t differenceSum(const cv::Mat& previous, const cv::Mat& current, int threshold,
                            const cv::Mat& mask) {
    std::uint64_t sum = 0;
    for (int y = 0; y < current.rows; ++y) {
        const std::uint8_t* maskRow = mask.empty() ? nullptr : mask.ptr(y);
        sum += rowSum(previous.ptr(y), current.ptr(y), maskRow, current.cols, threshold);
    }
    return sum;
}
