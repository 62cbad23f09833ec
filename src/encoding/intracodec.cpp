// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "intracodec.h"

bool isIntraCodec(const QByteArray& codecName) {
    return codecName == "mjpeg" || codecName == "mjpegb" || codecName == "lagarith";
}
