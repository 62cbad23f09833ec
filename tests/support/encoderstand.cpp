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

#include <fcntl.h>
#include <unistd.h>

namespace {

const char encoderName[] = "ffmpeg";
const char fontName[] = "DejaVuSansMono.ttf";
const char callsName[] = "calls";
const char clashesName[] = "clashes";
const char endName[] = "end";

QString besideProgram(const QString& name) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

} // namespace

EncoderStand::EncoderStand() {
    qputenv("RECORDER_FOLDER", QFile::encodeName(folder.path()));
    lend("RECORDER_CALLS", callsName);
    lend("RECORDER_CLASHES", clashesName);
    lend("RECORDER_END", endName);
    useRecorder();
}

EncoderStand::~EncoderStand() {
    release();
    useNone();
    for (const int descriptor : lent)
        close(descriptor);
}

void EncoderStand::useRecorder() {
    install(QStringLiteral(KESTROVA_RECORDER), encoderName);
}

void EncoderStand::useRealEncoder() {
    const QDir programs(media::programDirectory());
    install(programs.filePath(encoderName), encoderName);
    install(programs.filePath(fontName), fontName);
}

void EncoderStand::useScript(const QByteArray& script) {
    useNone();
    const QString path = besideProgram(encoderName);
    if (!writeFile(path, "#!/bin/sh\n" + script) ||
        !QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner))
        qWarning("cannot write %s", qPrintable(path));
}

void EncoderStand::useNone() {
    QFile::remove(besideProgram(encoderName));
}

void EncoderStand::setEnd(const QByteArray& end) {
    write(endName, end);
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
    return readFile(filePath(clashesName));
}

QList<QStringList> EncoderStand::calls() const {
    QList<QStringList> calls;
    QFile file(filePath(callsName));
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

/// Has the recorder inherit an open file, since it may be allowed to open none.
void EncoderStand::lend(const char* variable, const QString& name) {
    const int descriptor =
        open(QFile::encodeName(filePath(name)).constData(), O_RDWR | O_CREAT | O_APPEND, 0600);
    lent.append(descriptor);
    qputenv(variable, QByteArray::number(descriptor));
}

void EncoderStand::write(const QString& name, const QByteArray& content) {
    QFile file(filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qWarning("cannot write the recorder's %s", qPrintable(name));
}

QString EncoderStand::filePath(const QString& name) const {
    return folder.filePath(name);
}
