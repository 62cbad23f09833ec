// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// How long the window is busy with many long recordings and their clips; run by
// scripts/bench-window.
//
//   docksbench list FOLDER RECORDINGS CLIPS FILE hidden|shown
//       lists so many copies of FILE, said to be of 8 hours, with so many clips, and quits; without
//       or with all docks
//   docksbench go-on FOLDER RECORDINGS CLIPS FILE hidden|shown
//       goes on with that session, and does what a person does with it
//
// Prints for how long the window's thread did not come back to its events, in milliseconds of its
// own processor time, and by the clock.

#include "person.h"
#include "waits.h"
#include "week.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include <cstdio>
#include <cstring>
#include <memory>

namespace {

QString sessionFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/session";
}

/// With all pictures, no two of which are the same.
bool isSaved(int clips) {
    return QDir(sessionFolder() + "/pictures").entryList(QDir::Files).size() >= clips;
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

void listWeek(const Week& week, bool isShown) {
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
bool goOnWithWeek(const QString& folder, int clips, bool isShown) {
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
        person.loseRecordings(folder);
    }
    person.sortClips();
    person.removeAll();
    quit(std::move(driver));
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 7)
        return 2;
    const bool isFirst = std::strcmp(argv[1], "list") == 0;
    const QString folder = QFile::decodeName(argv[2]);
    const Week week(folder, QFile::decodeName(argv[5]), atoi(argv[3]), atoi(argv[4]));
    const bool isShown = std::strcmp(argv[6], "shown") == 0;
    const int clips = atoi(argv[3]) * week.clipsOfRecording();
    argc = 1;
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().setValue("export_dir", folder);
    if (!isFirst)
        return goOnWithWeek(folder, clips, isShown) ? 0 : 1;
    listWeek(week, isShown);
    return 0;
}
