// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mlt.h"

#include "escaping.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace {

/// What XML would take for its own, or would not give back as it was.
QByteArray xmlText(const QString& text) {
    QString escaped;
    for (const QChar letter : text) {
        if (isSteering(letter) || QStringLiteral("<>&\"'").contains(letter))
            escaped += QStringLiteral("&#%1;").arg(letter.unicode());
        else
            escaped += letter;
    }
    return escaped.toUtf8();
}

QByteArray attribute(const char* name, qint64 value) {
    return QByteArray(" ") + name + "=\"" + QByteArray::number(value) + '"';
}

QByteArray profile(const ListedRecording& recording) {
    const qint64 width = recording.size.width();
    const qint64 height = recording.size.height();
    const int num = recording.pixelAspectNumerator;
    const int den = recording.pixelAspectDenominator;
    return "  <profile" + attribute("width", width) + attribute("height", height) +
           attribute("progressive", 1) + attribute("sample_aspect_num", num) +
           attribute("sample_aspect_den", den) + attribute("display_aspect_num", width * num) +
           attribute("display_aspect_den", height * den) +
           attribute("frame_rate_num", recording.frameRateNumerator) +
           attribute("frame_rate_den", recording.frameRateDenominator) + "/>\n";
}

QByteArray producerId(int number) {
    return "recording" + QByteArray::number(number);
}

QByteArray producer(int number, const QString& path) {
    return "  <producer id=\"" + producerId(number) +
           "\">\n    <property name=\"mlt_service\">avformat</property>\n"
           "    <property name=\"resource\">" +
           xmlText(path) + "</property>\n  </producer>\n";
}

QByteArray entry(int producer, const ListedClip& clip, double frameRate) {
    const qint64 in = std::max(0LL, std::llround(clip.start * frameRate));
    // Its last frame, not the one behind it.
    const qint64 out = std::max<qint64>(in, std::llround(clip.end * frameRate) - 1);
    return "    <entry producer=\"" + producerId(producer) + '"' + attribute("in", in) +
           attribute("out", out) + "/>\n";
}

} // namespace

QByteArray mltDocument(const QVector<ListedClip>& clips) {
    QByteArray producers;
    QByteArray entries;
    QHash<QString, int> numbers; // of producers, by their paths
    for (const ListedClip& clip : clips) {
        const QString& path = clip.recording.path;
        if (!numbers.contains(path)) {
            producers += producer(numbers.size(), path);
            numbers.insert(path, numbers.size());
        }
        entries += entry(numbers[path], clip, clips[0].recording.frameRate());
    }
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<mlt LC_NUMERIC=\"C\">\n" +
           (clips.isEmpty() ? QByteArray() : profile(clips[0].recording)) + producers +
           "  <playlist id=\"clips\">\n" + entries + "  </playlist>\n</mlt>\n";
}

bool canBeInXml(const QString& name) {
    return name.isValidUtf16() && std::none_of(name.begin(), name.end(), [](QChar letter) {
               const ushort code = letter.unicode();
               const bool isBlank = code == '\t' || code == '\n' || code == '\r';
               return (code < ' ' && !isBlank) || code >= 0xfffe;
           });
}
