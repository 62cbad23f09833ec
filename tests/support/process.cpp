// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process.h"

#include "media.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>

QByteArray withoutAdvice(const QByteArray& errors) {
    static const QRegularExpression advice("; (no |a higher |a lower )?--[^\n]*");
    return QString::fromLocal8Bit(errors).remove(advice).toLocal8Bit();
}

ProcessResult endOf(QProcess& process, int timeoutMilliseconds) {
    const bool hasEnded = process.waitForFinished(timeoutMilliseconds);
    ProcessResult result;
    result.output = process.readAllStandardOutput();
    result.errors = process.readAllStandardError();
    if (!hasEnded) {
        process.kill();
        process.waitForFinished();
    } else if (process.exitStatus() == QProcess::NormalExit) {
        result.status = process.exitCode();
    }
    return result;
}

ProcessResult runProgram(const QString& name, const QStringList& arguments,
                         int timeoutMilliseconds) {
    return runProgramIn(QProcessEnvironment::systemEnvironment(), name, arguments,
                        timeoutMilliseconds);
}

ProcessResult runProgramIn(const QProcessEnvironment& environment, const QString& name,
                           const QStringList& arguments, int timeoutMilliseconds) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(QDir(media::programDirectory()).filePath(name), arguments);
    return endOf(process, timeoutMilliseconds);
}
