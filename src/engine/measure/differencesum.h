// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <opencv2/core/mat.hpp>

#include <cstdint>

/// The sum over two 8-bit planes of the absolute differences greater than `threshold` (0..255).
///
/// `previous` and `current` are CV_8UC1 of one size. With a `mask` (CV_8UC1 of that size, every
/// byte 0 or 255; empty: none) only pixels under 255 count. Exact: the same sum as absdiff,
/// threshold to zero, masked copy and sum give, in one pass that reads each plane once.
std::uint64_t differenceSum(const cv::Mat& previous, const cv::Mat& current, int threshold,
                            const cv::Mat& mask);
