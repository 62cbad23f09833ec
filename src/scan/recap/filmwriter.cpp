// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filmwriter.h"

#include <utility>

namespace {

constexpr int pollMilliseconds = 50;

} // namespace

FilmWriter::FilmWriter(const Film& film, std::function<bool()> isEnding)
    : film(film)
    , isEnding(std::move(isEnding)) {}

FilmWriter::~FilmWriter() {
    if (!isBroken())
        encoder.endIt();
}

QString FilmWriter::begin(const QString& newPath) {
    path = newPath;
    encoder.setStandardInputFile({}); // it gets the pictures
    return encoder.begin(filmArguments(film, path));
}

QString FilmWriter::add(const FilmStretch& stretch) {
    EncoderChild reader;
    reader.setStandardOutputFile({}); // we get the pictures
    reader.setReadChannel(QProcess::StandardOutput);
    QString failure = reader.begin(stretchArguments(stretch, film));
    if (!failure.isEmpty())
        return failure;
    const qint64 before = pictureCount;
    QByteArray bytes;
    while (reader.state() != QProcess::NotRunning && !isOver()) {
        if (!reader.waitForReadyRead(pollMilliseconds))
            reader.waitForFinished(1);
        pass(reader, bytes);
    }
    if (reader.state() != QProcess::NotRunning)
        reader.endIt();
    else
        pass(reader, bytes);
    failure = reader.failure(isOver());
    if (failure.isEmpty() && pictureCount == before)
        failure = QStringLiteral("no picture could be read");
    return failure;
}

/// Hands on whole pictures; what is left of one stays in `bytes`, so that a reader that crashes in
/// the middle of one does no harm to those behind.
void FilmWriter::pass(EncoderChild& reader, QByteArray& bytes) {
    reader.listen();
    bytes += reader.readAllStandardOutput();
    const qint64 whole = bytes.size() / film.pictureBytes();
    if (whole == 0 || isOver())
        return;
    const int size = int(whole * film.pictureBytes());
    write(bytes.left(size));
    bytes.remove(0, size);
    pictureCount += whole;
}

void FilmWriter::write(const QByteArray& bytes) {
    encoder.write(bytes);
    while (encoder.bytesToWrite() > 0 && !isOver()) {
        encoder.waitForBytesWritten(pollMilliseconds);
        encoder.listen();
    }
}

QString FilmWriter::finish() {
    encoder.closeWriteChannel();
    encoder.waitForEnd(isEnding);
    QString failure = encoder.failureOf(path, isEnding());
    if (failure.isEmpty() && isEnding())
        return QStringLiteral("interrupted");
    return failure;
}
