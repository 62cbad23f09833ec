#include "commandline.h"
#include "filenamecodec.h"
#include "interrupt.h"
#include "scanner.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace {

ExitStatus rejectCommandLine(const QString& reason) {
    std::fprintf(stderr, "kestrova-scan: %s\nTry 'kestrova-scan --help'.\n",
                 QFile::encodeName(reason).constData());
    return UsageError;
}

} // namespace

int main(int argc, char* argv[]) {
    installFileNameCodec();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kestrova-scan"));

    const CommandLine commandLine = parseCommandLine(QCoreApplication::arguments());
    if (commandLine.action == CommandLine::Action::Reject)
        return rejectCommandLine(commandLine.text);

    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return SomeFailed;
    if (commandLine.action == CommandLine::Action::PrintText) {
        output.write(commandLine.text.toUtf8());
        return output.flush() ? AllRead : SomeFailed;
    }
    catchInterrupts();
    const ExitStatus status = scan(commandLine.options, output);
    if (output.flush() && output.error() == QFileDevice::NoError)
        return status;
    std::fputs("kestrova-scan: cannot write to standard output\n", stderr);
    return status == AllRead ? SomeFailed : status;
}
