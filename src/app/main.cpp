// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "applicationicon.h"
#include "backgroundthread.h"
#include "commandlinepaths.h"
#include "detectionqueue.h"
#include "filenamecodec.h"
#include "mainwindow.h"
#include "pendingfiles.h"
#include "playerdock.h"
#include "toolkit.h"
#include "translation.h"

#include <QApplication>
#include <QLocale>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

/// What a lone --help or --version prints; empty for everything else.
std::string answerTo(int argc, char* argv[]) {
    const std::string argument = argc == 2 ? argv[1] : "";
    std::error_code ignored;
    if (std::filesystem::exists(argument, ignored))
        return {};
    if (argument == "--version")
        return "kestrova " KESTROVA_VERSION "\n";
    if (argument == "--help")
        return "Usage: kestrova [VIDEO]...\n"
               "Opens the window, and sets up the videos named. Of several the last one is shown.\n"
               "Finds motion in recordings, shows it as clips and cuts them out.\n"
               "Without a window: kestrova-scan --help\n";
    return {};
}

int showMainWindow() {
    MainWindow window;
    window.keepSession();
    window.show();
    return QApplication::exec();
}

} // namespace

/// Every argument is the path of a video file. A lone --help or --version is answered on standard
/// output, without a display, unless there is a file of that name.
int main(int argc, char* argv[]) {
    const std::string answer = answerTo(argc, argv);
    if (!answer.empty())
        return std::fputs(answer.c_str(), stdout) >= 0 && std::fflush(stdout) == 0 ? 0 : 1;
    installFileNameCodec();
    CommandLinePaths paths(argc, argv);
    const auto application = connectToDisplay(paths.count(), paths.arguments());
    QCoreApplication::setOrganizationName(QStringLiteral("kestrova"));
    QCoreApplication::setApplicationName(QStringLiteral("kestrova"));
    QGuiApplication::setDesktopFileName(QStringLiteral("kestrova"));
    keepToolkitThread();
    QGuiApplication::setWindowIcon(applicationIcon());
    speak(spokenLanguage(QLocale::system().uiLanguages()));

    const int status = showMainWindow();
    // A thread that is still busy must not find the program's globals destroyed.
    if (BackgroundThread::isAnyAbandoned() || DetectionQueue::isAnyAbandoned() ||
        PendingFiles::isAnyAbandoned() || PlayerDock::isAnyAbandoned())
        std::_Exit(status);
    return status;
}
