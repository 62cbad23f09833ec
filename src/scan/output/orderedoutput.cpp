// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "orderedoutput.h"

#include "writing.h"

#include <utility>

OrderedOutput::OrderedOutput(QIODevice& output, int recordings, Failed failed)
    : output(output)
    , failed(std::move(failed))
    , recordings(recordings) {}

void OrderedOutput::write(int index, const QByteArray& lines) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (index == current)
        writeNow(lines);
    else if (!hasFailed)
        recordings[index].waiting += lines;
}

void OrderedOutput::finish(int index) {
    const std::lock_guard<std::mutex> lock(mutex);
    recordings[index].isFinished = true;
    while (current < recordings.size() && recordings[current].isFinished) {
        ++current;
        if (current < recordings.size())
            writeNow(std::exchange(recordings[current].waiting, {}));
    }
}

void OrderedOutput::writeNow(const QByteArray& lines) {
    if (hasFailed || writeAll(output, lines))
        return;
    hasFailed = true;
    failed(output.errorString());
}
