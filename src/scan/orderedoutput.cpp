#include "orderedoutput.h"

#include <QFileDevice>

OrderedOutput::OrderedOutput(QIODevice& output, int recordings)
    : output(output)
    , recordings(recordings) {}

void OrderedOutput::write(int index, const QByteArray& lines) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (index == current)
        writeNow(lines);
    else
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
    if (lines.isEmpty())
        return;
    output.write(lines);
    if (auto* file = qobject_cast<QFileDevice*>(&output))
        file->flush();
}
