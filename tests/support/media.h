// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

/// Recordings made at test time.
namespace media {

/// The folder with the built programs, the encoder among them.
QString programDirectory();

/// Runs the encoder with `arguments`, which end with the output's name, on one thread, so that the
/// same bytes come out on every machine; false, with its errors on the debug output, if it fails.
bool encode(const QStringList& arguments);

/// The same without a word, where a failure is to be expected.
bool tryEncode(const QStringList& arguments);

/// Whether the encoder can write this codec ("libx264", "libaom-av1", ...).
bool hasEncoder(const QString& name);

/// One 8-bit picture of one grey.
QImage grey(int width, int height, int value);

/// Encodes grey pictures (QImage::Format_Grayscale8, all of one size) into `fileName`.
///
/// The picture values survive exactly only with a lossless codec and a pixel format that keeps
/// them, as {"-c:v", "ffv1"} does.
bool encodeGrey(const QString& fileName, const QList<QImage>& pictures, int framesPerSecond,
                const QStringList& codec);

/// The same for pictures of even width and height whose grey is luma of a screen's range, 16 to
/// 235, in every version of the encoder: grey itself is a full range for the newer ones.
bool encodeLuma(const QString& fileName, const QList<QImage>& pictures, int framesPerSecond,
                const QStringList& codec);

/// Arguments for raw RGB in AVI whose rows are stored bottom-up.
QStringList bottomUpRgb();

/// Encoder input: a still scene with sensor noise in which a flickering box crosses from second
/// `from` to second `to`, at a third of the height.
/// 320x240 at 25 frames per second unless `size` says otherwise ("1920x1080").
QStringList crossingBox(int seconds, int from, int to,
                        const QString& size = QStringLiteral("320x240"));

/// Encoder input: twenty seconds of 320x240 at 25 frames per second, in which something moves at
/// the left half from 3 to 7, and at the right half from 12 to 16; both between rows 80 and 140.
QStringList twoVisits();

} // namespace media
