#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QVector>

#include <mutex>

/// Lines of several recordings that are scanned side by side, written recording by recording.
///
/// The oldest unfinished recording's lines are written at once; those of the others wait for their
/// turn. Any thread may call anything.
class OrderedOutput {
public:
    /// `output` must be open and outlive this object.
    OrderedOutput(QIODevice& output, int recordings);

    /// One or more whole lines of recording `index` (0 for the first).
    void write(int index, const QByteArray& lines);

    /// Nothing more comes from this recording.
    void finish(int index);

private:
    struct Recording {
        QByteArray waiting;
        bool isFinished = false;
    };

    void writeNow(const QByteArray& lines);

    std::mutex mutex;
    QIODevice& output;
    QVector<Recording> recordings;
    int current = 0; ///< the recording whose lines are written at once
};
