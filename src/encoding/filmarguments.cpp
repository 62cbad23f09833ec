// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filmarguments.h"

#include "encoderarguments.h"
#include "encodertimes.h"

#include <algorithm>

namespace {

QString seconds(double value) {
    return QString::number(value, 'f', 3);
}

/// The overlay's clock counts whole seconds, and so stretches begin at one.
int beginOf(const FilmStretch& stretch) {
    return std::max(truncatedToInt(stretch.start), 0);
}

/// Where stored times cannot lead the encoder there, it decodes up to the stretch.
bool isSought(const FilmStretch& stretch) {
    return stretch.frameRate == 0.0;
}

QStringList inputArguments(const FilmStretch& stretch) {
    QStringList arguments;
    if (!isSought(stretch))
        arguments << QStringLiteral("-r") << QString::number(stretch.frameRate, 'g', 15);
    arguments << QStringLiteral("-protocol_whitelist") << QStringLiteral("file")
              << QStringLiteral("-f") << stretch.inputFormat;
    if (isSought(stretch))
        arguments << QStringLiteral("-ss") << QString::number(beginOf(stretch))
                  << QStringLiteral("-t") << seconds(stretch.end - beginOf(stretch));
    return arguments << QStringLiteral("-i") << stretch.fileName;
}

/// Dar is the shape of the whole picture, whatever that of its pixels.
QString fittedTo(const QSize& size) {
    return QStringLiteral("scale=w='max(2,2*round(min(%1,%2*dar)/2))'"
                          ":h='max(2,2*round(min(%2,%1/dar)/2))',"
                          "pad=%1:%2:(ow-iw)/2:(oh-ih)/2,setsar=1")
        .arg(size.width())
        .arg(size.height());
}

QString clockOf(const FilmStretch& stretch) {
    const QDateTime begin = stretch.begin.addSecs(beginOf(stretch));
    return overlayFilter(begin.date(), QTime(0, 0).secsTo(begin.time()));
}

QString filters(const FilmStretch& stretch, const Film& film) {
    QStringList chain;
    if (!isSought(stretch))
        chain << QStringLiteral("trim=start=%1:end=%2,setpts=PTS-STARTPTS")
                     .arg(QString::number(beginOf(stretch)), seconds(stretch.end));
    chain << QStringLiteral("fps=%1/%2").arg(film.rate, QString::number(film.speed));
    chain << fittedTo(film.size);
    if (stretch.begin.isValid())
        chain << clockOf(stretch);
    return chain.join(QLatin1Char(','));
}

/// The muxer's name: the file's own is one that nobody can guess.
QString muxerOf(Container container) {
    return container == Container::Mkv ? QStringLiteral("matroska") : containerName(container);
}

} // namespace

QStringList stretchArguments(const FilmStretch& stretch, const Film& film) {
    return QStringList{QStringLiteral("-nostats")} + inputArguments(stretch) +
           QStringList{QStringLiteral("-vf"),         filters(stretch, film),
                       QStringLiteral("-an"),         QStringLiteral("-sn"),
                       QStringLiteral("-dn"),         QStringLiteral("-fps_mode"),
                       QStringLiteral("passthrough"), QStringLiteral("-pix_fmt"),
                       QStringLiteral("yuv420p"),     QStringLiteral("-f"),
                       QStringLiteral("rawvideo"),    QStringLiteral("pipe:1")};
}

QStringList filmArguments(const Film& film, const QString& outputPath) {
    return {QStringLiteral("-nostats"),
            QStringLiteral("-y"),
            QStringLiteral("-protocol_whitelist"),
            QStringLiteral("pipe"),
            QStringLiteral("-f"),
            QStringLiteral("rawvideo"),
            QStringLiteral("-pixel_format"),
            QStringLiteral("yuv420p"),
            QStringLiteral("-video_size"),
            QStringLiteral("%1x%2").arg(film.size.width()).arg(film.size.height()),
            QStringLiteral("-framerate"),
            film.rate,
            QStringLiteral("-i"),
            QStringLiteral("pipe:0"),
            QStringLiteral("-b:v"),
            QString::number(bitsPerSecond(film.megabits)),
            QStringLiteral("-f"),
            muxerOf(film.container),
            outputPath};
}
