// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// A run of the program that is quit in its worst moment: a detection runs, an encoder runs, ten
// clips wait for their export. Usage: quitdriver RECORDING EXPORT_FOLDER
//
// Prints "quit" when it quits. Exit status 3: the moment did not come.

#include "mainwindowdriver.h"

#include <QSettings>

#include <cstdio>

namespace {

constexpr int longestWaitMilliseconds = 60000;
constexpr int waitingClips = 10;

/// Quits in the worst moment that it sees.
class Quitter : public QObject {
public:
    explicit Quitter(MainWindowDriver& driver)
        : driver(driver) {
        startTimer(5);
    }

protected:
    void timerEvent(QTimerEvent*) override {
        if (driver.list().count() == 0)
            return;
        if (!hasAsked)
            askForExports();
        const bool isDetecting = driver.clip(0).video->state == Video::Running;
        const bool isExporting = driver.clip(0).status == Clip::Exporting;
        if (!isDetecting || !isExporting || Clip::exportQueueLength() < waitingClips)
            return;
        std::puts("quit");
        std::fflush(stdout);
        driver.trigger("actionQuit");
    }

private:
    void askForExports() {
        hasAsked = true;
        Video* job = driver.clip(0).video;
        for (int index = 0; index < waitingClips; ++index)
            Q_EMIT job->newClip(100 + index, QImage(320, 240, QImage::Format_RGB32), index,
                                index + 5.0, index);
        driver.list().selectAll();
        driver.trigger("actionExport_selected");
    }

    MainWindowDriver& driver;
    bool hasAsked = false;
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova-quitdriver");
    const QStringList arguments = QCoreApplication::arguments();
    QSettings().setValue("export_dir", arguments[2]);
    MainWindowDriver driver;
    driver.window.show();
    driver.setup.addFile(arguments[1]);
    driver.clickSetup("pushButtonAdd");
    const Quitter quitter(driver);
    QTimer::singleShot(longestWaitMilliseconds, qApp, [] { QCoreApplication::exit(3); });
    return QApplication::exec();
}
