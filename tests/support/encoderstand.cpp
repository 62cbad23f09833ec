// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderstand.h"

#include "files.h"
#include "media.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>

namespace {

const char encoderName[] = "ffmpeg";
const char fontName[] = "DejaVuSansMono.ttf";

QString besideProgram(const QString& name) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

} // namespace

EncoderStand::EncoderStand() {
    qputenv("RECORDER_FOLDER", QFile::encodeName(folder.path()));
    useRecorder();
}

EncoderStand::~EncoderStand() {
    release();
    useNone();
}

void EncoderStand::useRecorder() {
    install(QStringLiteral(KESTROVA_RECORDER), encoderName);
}

void EncoderStand::useRealEncoder() {
    const QDir programs(media::programDirectory());
    install(programs.filePath(encoderName), encoderName);
    install(programs.filePath(fontName), fontName);
}

void EncoderStand::useNone() {
    QFile::remove(besideProgram(encoderName));
}

void EncoderStand::setEnd(const QByteArray& end) {
    write("end", end);
}

void EncoderStand::hold() {
    write("hold", {});
}

void EncoderStand::release() {
    QFile::remove(filePath("hold"));
}

void EncoderStand::releaseOutput(const QString& name) {
    write("free-" + name, {});
}

void EncoderStand::beStubborn() {
    write("stubborn", {});
}

QByteArray EncoderStand::clashes() const {
    return readFile(filePath("clashes"));
}

QList<QStringList> EncoderStand::calls() const {
    QList<QStringList> calls;
    QFile file(filePath("calls"));
    if (!file.open(QIODevice::ReadOnly))
        return calls;
    while (!file.atEnd())
        calls.append(QFile::decodeName(file.readLine()).chopped(1).split(QChar(0x1f)));
    return calls;
}

QStringList EncoderStand::outputs() const {
    QStringList names;
    for (const QStringList& call : calls())
        names.append(QFileInfo(call.last()).fileName());
    return names;
}

void EncoderStand::install(const QString& target, const QString& name) {
    QFile::remove(besideProgram(name));
    if (!QFile::link(target, besideProgram(name)))
        qWarning("cannot install %s", qPrintable(target));
}

void EncoderStand::write(const QString& name, const QByteArray& content) {
    QFile file(filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qWarning("cannot write the recorder's %s", qPrintable(name));
}

QString EncoderStand::filePath(const QString& name) const {
    return folder.filePath(name);
}
