// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "namedvalues.h"

#include "valuesname.h"
#include "valuesreader.h"

#include <QFile>

ScanOptions withNamedValues(ScanOptions options) {
    for (QString& video : options.videos) {
        const auto recording = isValuesName(video) ? recordingNamedIn(video) : std::nullopt;
        options.valuesFiles.append(recording ? video : QString());
        if (recording && !recording->isEmpty())
            video = QFile::decodeName(*recording);
    }
    return options;
}
