// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <opencv2/core.hpp>

/// Notes what OpenCV says of a picture; want of memory is for others to handle and thrown on.
void noteFailure(const cv::Exception& exception);
