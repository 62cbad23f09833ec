// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "container.h"

#include <QDateTime>
#include <QSize>
#include <QString>
#include <QStringList>

/// A stretch of a recording that a film shows.
struct FilmStretch {
    QString fileName;    ///< absolute
    QString inputFormat; ///< the encoder reads it as this (ContainerName)
    double start = 0.0;  ///< seconds from the recording's first picture; may lie before that
    double end = 0.0;

    /// Pictures per second, where it has no times of its own; else 0.
    double frameRate = 0.0;

    QDateTime begin; ///< what the clock on the wall showed at its first picture; invalid: unknown
};

/// A film of many stretches. Its pictures go from the encoders of the stretches, one after another,
/// to that of the film as they are, so that its size and its pictures per second are fixed.
struct Film {
    QSize size;         ///< pixels, each as wide as high; even numbers
    QString rate;       ///< pictures per second, as "30000/1001"
    double speed = 1.0; ///< as fast as this
    Container container = Container::Mp4;
    double megabits = 2.0; ///< per second (bitsPerSecond)

    qint64 pictureBytes() const { return qint64(size.width()) * size.height() * 3 / 2; }
};

/// How the encoder writes the pictures of a stretch to its standard output: YUV with 12 bits for a
/// pixel. They are scaled to the film's size with black bars where their shape is another one, and
/// show the clock where it is known. They begin at the whole second before the stretch.
QStringList stretchArguments(const FilmStretch& stretch, const Film& film);

/// How the encoder makes a film of such pictures on its standard input. An older file of this name
/// is overwritten.
QStringList filmArguments(const Film& film, const QString& outputPath);
