// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderrun.h"

#include "encoderchild.h"

#include <QFile>
#include <QFileInfo>

QString runEncoder(const EncoderCall& call, const std::function<bool()>& isEnding) {
    EncoderChild encoder;
    QString refusal = encoder.begin(call.arguments);
    if (!refusal.isEmpty())
        return refusal;
    encoder.waitForEnd(isEnding);
    const QFileInfo file(call.outputPath);
    QString failure = encoder.failureOf(call.outputPath, isEnding());
    if (file.isFile() && file.size() == 0)
        QFile::remove(call.outputPath);
    return failure;
}
