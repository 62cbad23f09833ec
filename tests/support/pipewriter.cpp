// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pipewriter.h"

#include <QFile>
#include <QThread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

PipeWriter::PipeWriter(const QString& pipe, QByteArray content)
    : pipe(QFile::encodeName(pipe))
    , content(std::move(content)) {
    std::signal(SIGPIPE, SIG_IGN); // the reader may close the pipe before all is written
    ::mkfifo(this->pipe.constData(), 0600);
    thread.reset(QThread::create([this] { write(); }));
    thread->start();
}

PipeWriter::~PipeWriter() {
    goOn();
    thread->wait();
}

void PipeWriter::write() {
    const int descriptor = ::open(pipe.constData(), O_WRONLY | O_CLOEXEC);
    const auto half = ssize_t(content.size() / 2);
    isHalfWritten = ::write(descriptor, content.constData(), std::size_t(half)) == half;
    rest.acquire();
    // A reader that is gone is nobody's fault.
    [[maybe_unused]] const ssize_t written =
        ::write(descriptor, content.constData() + half, std::size_t(content.size() - half));
    ::close(descriptor);
}
