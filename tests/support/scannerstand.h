// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

/// Puts a copy of the scanner beside the running test program, and so beside its encoder
/// (EncoderStand). The program must have a folder to itself.
class ScannerStand {
public:
    ScannerStand();
    ~ScannerStand(); ///< takes it away
    ScannerStand(const ScannerStand&) = delete;
    ScannerStand& operator=(const ScannerStand&) = delete;

    static QString path();
};

/// Encodes a recording of 20 s in H.264, with a key frame each second, in which a box crosses from
/// second `from` to second `to`. False, with the encoder's errors on the debug output, if it fails.
bool encodeVisit(const QString& fileName, int from = 7, int to = 13);

/// With these options of the scanner a visit is one clip: half of 2 s is filled about a second
/// after it has begun, so that the clip starts 2.5 s before it.
inline const QStringList oneClip = {"--prerecord", "1.5", "--postrecord", "2", "--minimum", "2"};
