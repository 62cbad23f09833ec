// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QSemaphore>
#include <QString>

#include <atomic>
#include <memory>

class QThread;

/// A named pipe and its only writer: half of the content at once, the rest when told.
class PipeWriter {
public:
    /// Makes the pipe if it is not there. The writer waits for a reader.
    PipeWriter(const QString& pipe, QByteArray content);

    /// Writes the rest, if nobody has told it before, and waits for the end of it. There must have
    /// been a reader.
    ~PipeWriter();
    PipeWriter(const PipeWriter&) = delete;
    PipeWriter& operator=(const PipeWriter&) = delete;

    void goOn() { rest.release(); }

    /// Whether the first half was read, or lies in the pipe.
    bool hasWrittenHalf() const { return isHalfWritten; }

private:
    void write();

    QByteArray pipe;
    QByteArray content;
    QSemaphore rest;
    std::atomic<bool> isHalfWritten{false};
    std::unique_ptr<QThread> thread;
};
