// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QVector>

#include <functional>
#include <mutex>

/// Lines of several recordings that are scanned side by side, written recording by recording.
///
/// The oldest unfinished recording's lines are written at once; those of the others wait for their
/// turn. After the first line that cannot be written nothing is written any more. Any thread may
/// call anything.
class OrderedOutput {
public:
    /// Told once, on the thread that wrote, why a line could not be written. Must not write.
    using Failed = std::function<void(const QString& reason)>;

    /// `output` must be open without a buffer and outlive this object.
    OrderedOutput(QIODevice& output, int recordings, Failed failed);

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
    Failed failed;
    bool hasFailed = false;
    QVector<Recording> recordings;
    int current = 0; ///< the recording whose lines are written at once
};
