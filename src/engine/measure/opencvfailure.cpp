// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "opencvfailure.h"

#include "logging.h"

#include <QtGlobal>

void noteFailure(const cv::Exception& exception) {
    if (exception.code == cv::Error::StsNoMem)
        qBadAlloc();
    qCWarning(engineLog, "a frame could not be measured: %s", exception.what());
}
