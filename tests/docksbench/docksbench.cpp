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
// own processor time.

#include "cliplistwidget.h"
#include "cliporder.h"
#include "mainwindowdriver.h"
#include "measurementcache.h"
#include "recordingstamp.h"

#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QKeyEvent>
#include <QSettings>
#include <QStandardPaths>
#include <QTableView>
#include <QTemporaryDir>
#include <QThread>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>

namespace {

constexpr double secondsOfRecording = 8 * 3600.0;
constexpr int picturesOfRecording = 8 * 3600 * 25;
constexpr int keptRecordings = 3; ///< of which there are values and maps; all would be gigabytes
constexpr double secondsOfClip = 7.0;
constexpr qint64 quietMilliseconds = 600; ///< longer than any pause of the window
constexpr qint64 longestMilliseconds = 90000;
const QSize pictureSize(320, 240);

/// Processor time of this thread, so that other programs do not count.
double milliseconds() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double durationOf(const std::function<void()>& action) {
    const double before = milliseconds();
    action();
    return milliseconds() - before;
}

using Condition = std::function<bool()>;

bool always() {
    return true;
}

/// The longest pass through the event loop until that holds and nothing has happened for a while.
double longestPass(const Condition& isDone = always) {
    double longest = 0.0;
    QElapsedTimer sinceStart;
    sinceStart.start();
    QElapsedTimer sinceWork;
    sinceWork.start();
    while (sinceWork.elapsed() < quietMilliseconds && sinceStart.elapsed() < longestMilliseconds) {
        const double pass = durationOf([] { QCoreApplication::processEvents(); });
        longest = std::max(longest, pass);
        if (pass > 1.0 || !isDone())
            sinceWork.restart();
        QThread::usleep(500);
    }
    return longest;
}

void measure(const char* what, const std::function<void()>& action,
             const Condition& isDone = always) {
    const double atOnce = durationOf(action);
    const double later = longestPass(isDone);
    std::printf("%s: %.1f ms\n", what, std::max(atOnce, later));
    std::fflush(stdout);
}

QImage picture(int number) {
    QImage image(pictureSize, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(number % 360, 200, 200));
    return image;
}

/// A visit every so many seconds.
Measurement madeUp(double secondsBetween) {
    Measurement measured;
    measured.hasPictures = true;
    measured.stream.codecName = "h264";
    measured.stream.description.size = pictureSize;
    const CellMap map(cellGridOf(pictureSize.width(), pictureSize.height()));
    for (int i = 1; i <= picturesOfRecording; ++i) {
        const double time = i / 25.0;
        const bool isVisit = std::fmod(time, secondsBetween) < secondsOfClip;
        measured.series.scores.append(MotionScore{isVisit ? 3.0F : float(i % 40) / 100.0F});
        measured.series.times.append(time);
        measured.maps.append(map);
    }
    return measured;
}

/// The window with its recordings and clips, as a person has them after a week.
class Week {
public:
    Week(const QString& folder, const QString& file, int recordings, int clips)
        : folder(folder)
        , clipsOfRecording(std::max(clips / recordings, 1)) {
        for (int i = 0; i < recordings; ++i) {
            const QString path = QStringLiteral("%1/camera-%2.mp4").arg(folder).arg(i);
            QFile::copy(file, path);
            files.append(path);
        }
    }

    double secondsBetween() const { return secondsOfRecording / clipsOfRecording; }

    QList<Video*> makeJobs() const {
        QList<Video*> jobs;
        for (const QString& path : files) {
            JobRecord record;
            record.fileName = path;
            record.clipDirectory = folder + "/clips/" + QString::number(jobs.size());
            record.state = Video::Finished;
            record.facts.seconds = secondsOfRecording;
            record.facts.pictures = pictureSize;
            record.facts.strongest = MotionScore{float(jobs.size() * 7 % 100) / 10.0F};
            jobs.append(new Video(record));
        }
        return jobs;
    }

    void keep(const QList<Video*>& jobs) const {
        const Measurement measured = madeUp(secondsBetween());
        for (Video* job : jobs.mid(0, keptRecordings))
            MeasurementCache::instance().keep(*stampOf(job->fileName), job->detectionOptions(),
                                              measured, {});
    }

    void listClips(const QList<Video*>& jobs) const {
        for (int number = 0; number < clipsOfRecording; ++number) {
            for (Video* job : jobs) {
                const double start = number * secondsBetween();
                Q_EMIT job->newClip(number, picture(number), start, start + secondsOfClip, start);
            }
        }
    }

private:
    QString folder;
    QStringList files;
    int clipsOfRecording;
};

class Person {
public:
    explicit Person(MainWindowDriver& driver)
        : driver(driver) {}

    void showDocks() {
        for (const char* dock : {"dockRecordings", "dockMotion", "dockPlayer"})
            driver.part<QDockWidget>(dock).show();
    }

    void handleClips() {
        auto& list = driver.list();
        measure("a clip chosen", [&] { list.setCurrentRow(list.count() / 2); });
        measure("the last clip chosen", [&] { list.setCurrentRow(list.count() - 1); });
        measure("all clips selected", [&] { list.selectAll(); });
        measure("all clips deselected", [&] { list.clearSelection(); });
    }

    /// The table can be used whether it is seen or not.
    void handleRecordings() {
        auto& table = driver.part<QTableView>("recordings");
        const QAbstractItemModel& model = *table.model();
        for (int row : {1, model.rowCount() / 2, 2})
            measure("a recording chosen", [&] { table.setCurrentIndex(model.index(row, 0)); });
        for (int column = 0; column < model.columnCount(); ++column)
            measure("the table sorted",
                    [&] { QMetaObject::invokeMethod(&table, "sortNext", Q_ARG(int, column)); });
        auto& line = driver.part<QLineEdit>("lineEditFilter");
        for (const char* typed : {"c", "ca", "camera-1", ""})
            measure("the filter typed", [&] { line.setText(typed); });
        auto& shown = driver.part<QComboBox>("comboBoxShown");
        for (int choice : {1, 2, 0})
            measure("other recordings shown", [&] { shown.setCurrentIndex(choice); });
    }

    void showOnlyOne() {
        auto& dock = driver.part<QDockWidget>("dockRecordings");
        Video* job = driver.clip(0).video;
        measure("one recording alone",
                [&] { QMetaObject::invokeMethod(&dock, "onlyThisAsked", Q_ARG(Video*, job)); });
        measure("all recordings", [&] { driver.click("pushButtonShowAll"); });
    }

    void tune() {
        auto& threshold = driver.part<QDoubleSpinBox>("spinBoxThreshold");
        auto& use = driver.part<QPushButton>("pushButtonUse");
        const auto isDecided = [&] { return use.isEnabled(); };
        measure(
            "a kept recording chosen", [&] { driver.list().setCurrentRow(0); }, isDecided);
        measure("the threshold changed", [&] { threshold.setValue(0.3); });
        measure("cells asked",
                [&] { driver.part<QComboBox>("comboBoxDetector").setCurrentIndex(1); });
        measure("the mean asked",
                [&] { driver.part<QComboBox>("comboBoxDetector").setCurrentIndex(0); });
        useAndUndo("Use", use);
        useAndUndo("Use for all", driver.part<QPushButton>("pushButtonUseForAll"));
    }

    void drawArea() {
        auto& overlay = driver.part<QWidget>("areaOverlay");
        auto& button = driver.part<QToolButton>("buttonArea");
        measure("an area begun", [&] { button.click(); });
        measure("an area drawn", [&] {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
            QCoreApplication::sendEvent(&overlay, &key);
        });
        if (driver.part<QWidget>("barShown").isVisible())
            measure("the area cleared", [&] { driver.click("pushButtonShowAll"); });
    }

    void sortClips(const QList<Video*>& jobs) {
        auto& list = static_cast<ClipListWidget&>(driver.list());
        for (ClipOrder order : {ClipOrder::Length, ClipOrder::Found})
            measure("clips sorted", [&] { reorder(list, ordered(list.clips(), order, jobs)); });
    }

    void removeAll() {
        measure("all clips removed", [&] { driver.trigger("actionRemoveAll"); });
    }

private:
    void useAndUndo(const char* what, QPushButton& use) {
        const int clips = driver.list().count();
        measure(
            what, [&] { use.click(); }, [&] { return driver.list().count() != clips; });
        measure(
            "Undo", [&] { driver.click("pushButtonUndo"); },
            [&] { return driver.list().count() == clips; });
    }

    MainWindowDriver& driver;
};

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

void keepWeek(const Week& week, bool isShown) {
    MainWindowDriver driver;
    driver.window.keepSession();
    driver.window.show();
    if (isShown)
        Person(driver).showDocks();
    longestPass();
    const QList<Video*> jobs = week.makeJobs();
    week.keep(jobs);
    driver.setup.readyVideos = jobs;
    measure("recordings accepted", [&] { QMetaObject::invokeMethod(&driver.setup, "newVideo"); });
    week.listClips(jobs);
    measure(
        "the session saved", [] {}, [&] { return isSaved(driver.list().count()); });
}

/// False if there is nothing to go on with.
bool goOnWithWeek(int clips, bool isShown) {
    MainWindowDriver driver;
    driver.window.keepSession();
    driver.window.show();
    Person person(driver);
    if (isShown)
        person.showDocks();
    longestPass();
    measure(
        "the session restored", [&] { driver.click("pushButtonGoOn"); },
        [&] { return driver.list().count() >= clips; });
    person.handleClips();
    person.handleRecordings();
    person.showOnlyOne();
    if (isShown) {
        person.tune();
        person.drawArea();
    }
    person.sortClips({});
    person.removeAll();
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
    keepWeek(Week(folder.path(), file, recordings, clips), isShown);
    waitForSession();
    return goOnWithWeek(clips, isShown) ? 0 : 1;
}
