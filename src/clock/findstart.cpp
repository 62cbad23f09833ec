// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "findstart.h"

#include "sensibletime.h"
#include "startinfile.h"
#include "startinname.h"

namespace {

RecordingStart behind(const QVector<StartDoubt>& before, RecordingStart start) {
    start.doubts = before + start.doubts;
    return start;
}

RecordingStart ofAll(const QString& path, const QDateTime& modified, const StartSearch& search,
                     const std::function<FileHead()>& readHead) {
    RecordingStart named =
        startInName(path, search.zone, search.pattern ? &*search.pattern : nullptr);
    if (named.isKnown())
        return named;
    const FileHead head = readHead();
    RecordingStart written = behind(named.doubts, startInHead(head, search.zone));
    if (written.isKnown())
        return written;
    return behind(written.doubts, startByFile(modified, head, search.zone));
}

} // namespace

RecordingStart findStart(const QString& path, const QDateTime& modified, const StartSearch& search,
                         const std::function<FileHead()>& readHead) {
    RecordingStart start = ofAll(path, modified, search, readHead);
    if (!start.isKnown() || !isAhead(start.time, search.now))
        return start;
    start.certainty = StartCertainty::Rough;
    return lessSure(start, StartDoubt::Ahead);
}
