// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recording.h"

#include "namedvalues.h"

#include <QFileInfo>

std::vector<Recording> recordingsOf(const QStringList& names) {
    std::vector<Recording> recordings;
    recordings.reserve(std::size_t(names.size()));
    for (const QString& name : names) {
        const auto ofValues = recordingOfValues(name);
        Recording recording;
        recording.place = int(recordings.size());
        recording.video = ofValues.value_or(name);
        recording.path = QFileInfo(recording.video).absoluteFilePath();
        recording.valuesFile = ofValues ? name : QString();
        recording.bytes = QFileInfo(recording.video).size();
        recordings.push_back(recording);
    }
    return recordings;
}
