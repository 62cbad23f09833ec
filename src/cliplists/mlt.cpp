// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editlists.h"

#include "escaping.h"

#include <QHash>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace {

/// What XML would take for its own, or would not give back as it was, is written as its number.
void writeText(QXmlStreamWriter& xml, const QString& text) {
    for (const QChar letter : text) {
        if (isSteering(letter) || QStringLiteral("<>&\"'").contains(letter))
            xml.writeEntityReference('#' + QString::number(letter.unicode()));
        else
            xml.writeCharacters(letter);
    }
}

void writeNumber(QXmlStreamWriter& xml, const char* name, qint64 value) {
    xml.writeAttribute(name, QString::number(value));
}

void writeProfile(QXmlStreamWriter& xml, const ListedRecording& recording) {
    const qint64 width = recording.size.width();
    const qint64 height = recording.size.height();
    const int num = recording.pixelAspectNumerator;
    const int den = recording.pixelAspectDenominator;
    xml.writeEmptyElement("profile");
    writeNumber(xml, "width", width);
    writeNumber(xml, "height", height);
    writeNumber(xml, "progressive", 1);
    writeNumber(xml, "sample_aspect_num", num);
    writeNumber(xml, "sample_aspect_den", den);
    writeNumber(xml, "display_aspect_num", width * num);
    writeNumber(xml, "display_aspect_den", height * den);
    writeNumber(xml, "frame_rate_num", recording.frameRateNumerator);
    writeNumber(xml, "frame_rate_den", recording.frameRateDenominator);
}

QString producerId(int number) {
    return QStringLiteral("recording%1").arg(number);
}

void writeProperty(QXmlStreamWriter& xml, const char* name, const QString& value) {
    xml.writeStartElement("property");
    xml.writeAttribute("name", name);
    writeText(xml, value);
    xml.writeEndElement();
}

void writeProducer(QXmlStreamWriter& xml, int number, const QString& path) {
    xml.writeStartElement("producer");
    xml.writeAttribute("id", producerId(number));
    writeProperty(xml, "mlt_service", "avformat");
    writeProperty(xml, "resource", path);
    xml.writeEndElement();
}

void writeEntry(QXmlStreamWriter& xml, int producer, const ListedClip& clip, double frameRate) {
    const qint64 in = std::max(0LL, std::llround(clip.start * frameRate));
    // Its last frame, not the one behind it.
    const qint64 out = std::max<qint64>(in, std::llround(clip.end * frameRate) - 1);
    xml.writeEmptyElement("entry");
    xml.writeAttribute("producer", producerId(producer));
    writeNumber(xml, "in", in);
    writeNumber(xml, "out", out);
}

/// Answers the numbers of the producers, by their paths.
QHash<QString, int> writeProducers(QXmlStreamWriter& xml, const QVector<ListedClip>& clips) {
    QHash<QString, int> numbers;
    for (const ListedClip& clip : clips) {
        const QString& path = clip.recording.path;
        if (numbers.contains(path))
            continue;
        writeProducer(xml, numbers.size(), path);
        numbers.insert(path, numbers.size());
    }
    return numbers;
}

} // namespace

QByteArray mltDocument(const QVector<ListedClip>& clips) {
    QByteArray document;
    QXmlStreamWriter xml(&document);
    xml.writeProcessingInstruction("xml", "version=\"1.0\" encoding=\"utf-8\"");
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartElement("mlt");
    xml.writeAttribute("LC_NUMERIC", "C");
    if (!clips.isEmpty())
        writeProfile(xml, clips[0].recording);
    const QHash<QString, int> producers = writeProducers(xml, clips);
    xml.writeStartElement("playlist");
    xml.writeAttribute("id", "clips");
    if (clips.isEmpty())
        xml.writeCharacters("\n  "); // no empty element
    for (const ListedClip& clip : clips)
        writeEntry(xml, producers[clip.recording.path], clip, clips[0].recording.frameRate());
    xml.writeEndDocument();
    return document;
}

bool canBeInXml(const QString& name) {
    return name.isValidUtf16() && std::none_of(name.begin(), name.end(), [](QChar letter) {
               const ushort code = letter.unicode();
               const bool isBlank = code == '\t' || code == '\n' || code == '\r';
               return (code < ' ' && !isBlank) || code >= 0xfffe;
           });
}
