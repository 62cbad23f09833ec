// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "namedvalues.h"

#include "valuesname.h"
#include "valuesreader.h"

#include <QFile>

std::optional<QString> recordingOfValues(const QString& name) {
    const auto recording = isValuesName(name) ? recordingNamedIn(name) : std::nullopt;
    if (!recording)
        return std::nullopt;
    return recording->isEmpty() ? name : QFile::decodeName(*recording);
}
