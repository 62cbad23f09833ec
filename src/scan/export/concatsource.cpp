// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "concatsource.h"

#include "clipnames.h"
#include "concatlist.h"
#include "containername.h"
#include "recording.h"
#include "writing.h"

#include <QFile>

namespace {

QVector<ConcatEntry> entriesOf(const QVector<ClipPart>& parts) {
    QVector<ConcatEntry> entries;
    for (int i = 0; i < parts.size(); ++i) {
        const bool isLast = i + 1 == parts.size();
        const double length = isLast ? parts[i].end : parts[i + 1].offset - parts[i].offset;
        entries.append({parts[i].recording->path, length});
    }
    return entries;
}

} // namespace

ConcatSource::ConcatSource(const ClipLine& line, const EncodedVideo& first,
                           const std::function<bool()>& isEnding)
    : joined(first) {
    joined.listedFormat = formatsOf(line, isEnding);
    if (!error.isEmpty())
        return;
    joined.fileName =
        first.clipDirectory + '/' + clipNumber(line.clip.index) + QStringLiteral(".ffconcat");
    error = writeWholeFile(joined.fileName, concatList(entriesOf(line.parts)));
}

ConcatSource::~ConcatSource() {
    if (joined.fileName.endsWith(QStringLiteral(".ffconcat")))
        QFile::remove(joined.fileName);
}

/// Of all parts, as the encoder is told them.
QString ConcatSource::formatsOf(const ClipLine& line, const std::function<bool()>& isEnding) {
    QStringList formats;
    for (const ClipPart& part : line.parts) {
        Recording& recording = *part.recording;
        if (recording.watched)
            error = recording.watched->flaw();
        if (error.isEmpty() && !canBeConcatenated(recording.path))
            error = QStringLiteral("a line break in its name, which no list for the encoder holds");
        const ContainerName container =
            error.isEmpty() ? containerNameOf(recording.path, isEnding) : ContainerName();
        if (error.isEmpty())
            error = container.error;
        if (!error.isEmpty()) {
            error = recording.video + QStringLiteral(": ") + error;
            return {};
        }
        if (!formats.contains(container.name))
            formats += container.name;
    }
    return formats.join(QLatin1Char(','));
}
