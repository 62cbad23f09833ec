// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// How long the window is busy with many long recordings and their clips; run by
// scripts/bench-window.
//
//   docksbench RECORDINGS CLIPS FILE hidden|shown   lists so many copies of FILE, said to be of 8
//                                                   hours, with so many clips, and does what a
//                                                   person does with them; without or with all
//                                                   docks
//
// Prints for how long the window's thread did not come back to its events, in milliseconds of its
// own processor time, and by the clock.

#include "person.h"
#include "waits.h"
#include "week.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr qint64 longestMilliseconds = 180000; ///< until a session is written

QString sessionFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/session";
}

/// Pictures are looked at before the session is written.
bool isSaved(int clips) {
    constexpr qint64 leastBytesOfClip = 100;
    return QFileInfo(sessionFolder() + "/index").size() > clips * leastBytesOfClip;
}

/// A thread of its own may still be at work with it.
void waitForSession() {
    QElapsedTimer timer;
    timer.start();
    while (QFile::exists(sessionFolder() + ".lock") && timer.elapsed() < longestMilliseconds)
        QThread::usleep(500);
}

std::unique_ptr<MainWindowDriver> openWindow(bool isShown) {
    auto driver = std::make_unique<MainWindowDriver>();
    driver->window.keepSession();
    driver->window.show();
    if (isShown)
        Person(*driver).showDocks();
    longestPass();
    return driver;
}

void quit(std::unique_ptr<MainWindowDriver> driver) {
    driver->window.close();
    print("quitting", waitFor([&] { driver.reset(); }));
}

/// One recording's clips after the other's, with all that comes of them.
void listClips(const Week& week, const QList<Video*>& jobs) {
    Wait longest;
    for (Video* job : jobs) {
        longest.include(waitFor([&] {
            week.announceClips(*job);
            QCoreApplication::processEvents();
        }));
    }
    longest.include(longestPass());
    print("a recording's clips listed", longest);
}

void keepWeek(const Week& week, bool isShown) {
    auto driver = openWindow(isShown);
    const QList<Video*> jobs = week.makeJobs();
    if (isShown)
        week.keep(jobs);
    driver->setup.readyVideos = jobs;
    measure("recordings accepted", [&] { QMetaObject::invokeMethod(&driver->setup, "newVideo"); });
    listClips(week, jobs);
    measure(
        "the session saved", [] {}, [&] { return isSaved(driver->list().count()); });
    quit(std::move(driver));
}

/// False if there is nothing to go on with.
bool goOnWithWeek(int clips, bool isShown) {
    auto driver = openWindow(isShown);
    measure(
        "the session restored", [&] { driver->click("pushButtonGoOn"); },
        [&] { return driver->list().count() >= clips; });
    if (driver->list().count() < clips) {
        std::fprintf(stderr, "%d clips are restored\n", driver->list().count());
        return false;
    }
    Person person(*driver);
    person.handleClips();
    person.handleRecordings();
    person.showOnlyOne();
    if (isShown) {
        person.tune();
        person.drawArea();
    }
    person.sortClips();
    person.removeAll();
    quit(std::move(driver));
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 5)
        return 2;
    const int recordings = atoi(argv[1]);
    const int clips = atoi(argv[2]);
    const QString file = QFile::decodeName(argv[3]);
    const bool isShown = std::strcmp(argv[4], "shown") == 0;
    argc = 1;
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    const QTemporaryDir folder;
    QSettings().setValue("export_dir", folder.path());
    const Week week(folder.path(), file, recordings, clips);
    keepWeek(week, isShown);
    waitForSession();
    return goOnWithWeek(recordings * week.clipsOfRecording(), isShown) ? 0 : 1;
}
