// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "containername.h"

#include "demuxer.h"

#include <QFile>

ContainerName containerNameOf(const QString& fileName, std::function<bool()> isInterrupted) {
    Demuxer demuxer(QFile::encodeName(fileName), std::move(isInterrupted));
    const AVInputFormat* format = demuxer.findFormat();
    if (!format)
        return {{}, demuxer.errorText()};
    return {programName(*format), {}};
}

QString programName(const AVInputFormat& demuxer) {
    return QString::fromLatin1(demuxer.name).section(QLatin1Char(','), 0, 0);
}
