// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commandline.h"
#include "continuedscan.h"
#include "escaping.h"
#include "filenamecodec.h"
#include "interrupt.h"
#include "markedexport.h"
#include "scanconfinement.h"
#include "scanner.h"
#include "standardoutput.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <new>

#include <fcntl.h>
#include <unistd.h>

namespace {

ExitStatus rejectCommandLine(const QString& reason) {
    std::fprintf(stderr, "kestrova-scan: %s\nTry 'kestrova-scan --help'.\n",
                 QFile::encodeName(printable(reason)).constData());
    return BadCommandLine;
}

/// Keeps standard descriptors that are closed from being given to the next files opened, which
/// would then get what is printed. Writing to one of them fails.
void holdStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) == -1)
            open("/dev/null", O_RDONLY);
    }
}

ExitStatus print(const QString& text, QIODevice& output) {
    const QByteArray bytes = text.toUtf8();
    if (output.write(bytes) == bytes.size())
        return AllDone;
    std::fprintf(stderr, "kestrova-scan: standard output: %s\n", qPrintable(output.errorString()));
    return SomeFailed;
}

/// What the threads of the scan and its recordings could not make good.
ExitStatus scanOrFail(const ScanOptions& options, QIODevice& output) {
    try {
        // Before interrupts are caught: nobody may ever write to a pipe.
        const Marks marks = options.marksFile.isEmpty() ? Marks() : readMarks(options.marksFile);
        catchInterrupts();
        if (!options.marksFile.isEmpty())
            return exportMarked(options, marks, {output, confine, isEnding});
        return scan(options, output, confine, scanContinued);
    } catch (const std::bad_alloc&) {
        std::fputs("kestrova-scan: out of memory\n", stderr);
        return SomeFailed;
    }
}

} // namespace

int main(int argc, char* argv[]) {
    holdStandardDescriptors();
    installFileNameCodec();
    installMessageHandler();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kestrova-scan"));

    const CommandLine commandLine = parseCommandLine(QCoreApplication::arguments());
    if (commandLine.action == CommandLine::Action::Reject)
        return rejectCommandLine(commandLine.text);

    StandardOutput output;
    if (!output.openStandard())
        return SomeFailed;
    if (commandLine.action == CommandLine::Action::PrintText)
        return print(commandLine.text, output);
    if (commandLine.action == CommandLine::Action::PrintNames)
        return printNames(commandLine.options, output, confine);
    return scanOrFail(commandLine.options, output);
}
