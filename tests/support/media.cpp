// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "media.h"

#include "process.h"

#include <QFile>
#include <QTemporaryFile>
#include <QtDebug>

#include <cstring>

namespace media {

namespace {

const QStringList common = {"-nostdin", "-v", "error", "-y"};

/// `option` with settings that an encoder gets behind those it is given already.
QStringList withSettings(const QStringList& arguments, const QString& option, QString settings) {
    const int place = arguments.lastIndexOf(option) + 1;
    if (place > 0)
        settings = arguments.at(place) + ':' + settings;
    return {option, settings};
}

/// Encoders that count the machine's cores write other bytes where there are others, and muxers
/// write random numbers. `arguments` end with the output's name.
QStringList sameOnEveryMachine(QStringList arguments) {
    const QString output = arguments.takeLast();
    QStringList pins = {"-threads", "1", "-fflags", "+bitexact"};
    if (arguments.contains("libx265"))
        pins += withSettings(arguments, "-x265-params", "pools=1:frame-threads=1");
    if (arguments.contains("libsvtav1"))
        pins += withSettings(arguments, "-svtav1-params", "lp=1");
    return common + arguments + pins + QStringList{output};
}

} // namespace

QString programDirectory() {
    return QStringLiteral(KESTROVA_PROGRAM_DIRECTORY);
}

bool tryEncode(const QStringList& arguments) {
    return runProgram("ffmpeg", sameOnEveryMachine(arguments)).status == 0;
}

bool encode(const QStringList& arguments) {
    const ProcessResult result = runProgram("ffmpeg", sameOnEveryMachine(arguments));
    if (result.status != 0)
        qWarning("ffmpeg %s: %s", qPrintable(arguments.join(' ')), result.errors.constData());
    return result.status == 0;
}

bool hasEncoder(const QString& name) {
    static const QByteArray encoders = runProgram("ffmpeg", {"-v", "error", "-encoders"}).output;
    return encoders.contains(' ' + name.toLatin1() + ' ');
}

QImage grey(int width, int height, int value) {
    QImage picture(width, height, QImage::Format_Grayscale8);
    picture.fill(value);
    return picture;
}

namespace {

/// `tail` follows the rows of each picture.
bool encodeRaw(const QString& fileName, const QList<QImage>& pictures, int framesPerSecond,
               const QString& pixelFormat, const QByteArray& tail, const QStringList& codec) {
    QTemporaryFile raw;
    if (pictures.isEmpty() || !raw.open())
        return false;
    for (const QImage& picture : pictures) {
        for (int y = 0; y < picture.height(); ++y)
            raw.write(reinterpret_cast<const char*>(picture.constScanLine(y)), picture.width());
        raw.write(tail);
    }
    raw.close();
    const QImage& first = pictures.first();
    const QStringList input = {
        "-f",       "rawvideo",
        "-pix_fmt", pixelFormat,
        "-s",       QStringLiteral("%1x%2").arg(first.width()).arg(first.height()),
        "-r",       QString::number(framesPerSecond),
        "-i",       raw.fileName()};
    return encode(input + codec + QStringList{fileName});
}

} // namespace

bool encodeGrey(const QString& fileName, const QList<QImage>& pictures, int framesPerSecond,
                const QStringList& codec) {
    return encodeRaw(fileName, pictures, framesPerSecond, "gray", {}, codec);
}

bool encodeLuma(const QString& fileName, const QList<QImage>& pictures, int framesPerSecond,
                const QStringList& codec) {
    if (pictures.isEmpty())
        return false;
    const QSize half = pictures.first().size() / 2;
    const QByteArray colourless(2 * half.width() * half.height(), char(128));
    return encodeRaw(fileName, pictures, framesPerSecond, "yuv420p", colourless, codec);
}

QStringList bottomUpRgb() {
    // The container only says so; turning the pictures over is the filter's part.
    return {"-vf", "vflip", "-c:v", "rawvideo", "-pix_fmt", "bgr24", "-flipped_raw_rgb", "1"};
}

QStringList crossingBox(int seconds, int from, int to, const QString& size) {
    const QString scene =
        QStringLiteral(
            "color=c=0x406040:s=%1:r=25:d=%2,noise=alls=4:allf=t:all_seed=7[scene];"
            "color=c=gray:s=%1:r=25:d=%2,scale=iw/5:ih/4,noise=alls=90:allf=t:all_seed=8[box];"
            "[scene][box]overlay=x='(t-%3)*W/(%4-%3)':y=H/3:"
            "enable='between(t,%3,%4)',format=yuv420p")
            .arg(size)
            .arg(seconds)
            .arg(from)
            .arg(to);
    return {"-filter_complex", scene};
}

QStringList twoVisits() {
    const QString box = QStringLiteral(
        "color=c=gray:s=320x240:r=25:d=20,scale=40:60,noise=alls=90:allf=t:all_seed=");
    return {"-filter_complex",
            "color=c=0x406040:s=320x240:r=25:d=20,noise=alls=4:allf=t:all_seed=7[scene];" + box +
                "8[a];" + box +
                "9[b];[scene][a]overlay=x='10+20*(t-3)':y=80:enable='between(t,3,7)'[one];"
                "[one][b]overlay=x='190+20*(t-12)':y=80:enable='between(t,12,16)',format=yuv420p"};
}

} // namespace media
