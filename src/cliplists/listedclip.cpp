// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "listedclip.h"

#include <algorithm>

QString ListedClip::label() const {
    return recording.name + QStringLiteral(" #") + QString::number(index);
}

double ListedClip::startInFile() const {
    return std::max(0.0, start + recording.offset);
}

double ListedClip::endInFile() const {
    return std::max(0.0, end + recording.offset);
}
