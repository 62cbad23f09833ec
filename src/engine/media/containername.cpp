// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "containername.h"

#include "packetreader.h"

#include <QFile>

ContainerName containerNameOf(const QString& fileName, std::function<bool()> isInterrupted) {
    PacketReader reader;
    reader.setInterrupt(std::move(isInterrupted));
    const AVInputFormat* demuxer = reader.demuxerOf(QFile::encodeName(fileName).constData());
    if (!demuxer)
        return {{}, reader.errorText()};
    return {programName(*demuxer), {}};
}

QString programName(const AVInputFormat& demuxer) {
    return QString::fromLatin1(demuxer.name).section(QLatin1Char(','), 0, 0);
}
