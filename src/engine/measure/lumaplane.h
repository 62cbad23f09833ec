// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"

#include <opencv2/core/mat.hpp>

/// Shows plane 0 of a decoded picture to OpenCV as one 8-bit channel, top row first.
///
/// The plane is wrapped, not copied, wherever its rows lie as OpenCV wants them. Only rows stored
/// bottom-up and rows with fewer bytes than the picture has columns (1-bit formats) are copied,
/// into a buffer that is kept; columns that such a row does not hold read as 0.
class LumaPlane {
public:
    /// height x width, CV_8UC1; empty if the picture has no readable plane 0. Valid as long as the
    /// frame and until the next call.
    cv::Mat wrap(const DecodedFrame& record);

private:
    cv::Mat copyTopDown(const DecodedFrame& record, int bytesPerRow);

    cv::Mat buffer;
};
