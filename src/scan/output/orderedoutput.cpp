// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "orderedoutput.h"

#include "writing.h"

#include <utility>

void OrderedOutput::Section::write(const QByteArray& lines) {
    const std::lock_guard<std::mutex> lock(output.mutex);
    if (output.current < output.sections.size() && this == &output.sections[output.current])
        output.writeNow(lines);
    else if (!output.hasFailed)
        waiting += lines;
}

void OrderedOutput::Section::finish() {
    const std::lock_guard<std::mutex> lock(output.mutex);
    isFinished = true;
    output.goOn();
}

OrderedOutput::OrderedOutput(QIODevice& output, Failed failed)
    : output(output)
    , failed(std::move(failed)) {}

void OrderedOutput::goOn() {
    while (current < sections.size() && sections[current].isFinished) {
        ++current;
        if (current < sections.size())
            writeNow(std::exchange(sections[current].waiting, {}));
    }
}

void OrderedOutput::writeNow(const QByteArray& lines) {
    if (hasFailed || writeAll(output, lines))
        return;
    hasFailed = true;
    failed(output.errorString());
}
