// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "encoderchild.h"
#include "filmarguments.h"

#include <functional>

/// Makes a film of many stretches with two encoders: one that reads a stretch, and one that writes
/// the film. What is in memory is one picture, whatever their number.
///
/// Functions that answer text say why something could not be done.
class FilmWriter {
public:
    /// `isEnding` answers whether the scan is to end, and is asked while one waits.
    FilmWriter(const Film& film, std::function<bool()> isEnding);
    ~FilmWriter(); ///< ends the encoders that are left

    QString begin(const QString& path);

    /// The next stretch. What could be read of one that fails is in the film.
    QString add(const FilmStretch& stretch);

    /// Whether the film's own encoder has ended too early, so that nothing can be added any more.
    bool isBroken() const { return encoder.state() == QProcess::NotRunning; }

    /// Ends the film.
    QString finish();

    qint64 pictures() const { return pictureCount; } ///< in the film so far

private:
    void pass(EncoderChild& reader, QByteArray& bytes);
    void write(const QByteArray& bytes);
    bool isOver() const { return isBroken() || isEnding(); }

    Film film;
    std::function<bool()> isEnding;
    EncoderChild encoder;
    QString path;
    qint64 pictureCount = 0;
};
