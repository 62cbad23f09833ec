// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// How long the window is busy with many clips and many files; run by scripts/bench-window.
//
//   windowbench COUNT FILE   lists COUNT clips and changes their status, each with all that the
//                            event loop then does; accepts COUNT jobs of FILE at once
//
// Prints milliseconds, and the memory of a clip beside its picture.

#include "mainwindowdriver.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>

#include <unistd.h>

namespace {

const QSize pictureSize(320, 180);

qint64 residentBytes() {
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ')[1].toLongLong() * sysconf(_SC_PAGESIZE);
}

/// Processor time of this thread, so that other programs do not count.
double milliseconds() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// One line of figures about something that was done many times.
class Figures {
public:
    explicit Figures(const char* what)
        : what(what) {}
    ~Figures() {
        std::printf("%s: mean %.3f ms, worst %.3f ms\n", what, sum / std::max(count, 1), worst);
    }
    Figures(const Figures&) = delete;
    Figures& operator=(const Figures&) = delete;

    /// Does it, and all that it leaves to the event loop.
    template<class Action>
    void measure(Action action) {
        const double before = milliseconds();
        action();
        QCoreApplication::processEvents();
        const double duration = milliseconds() - before;
        sum += duration;
        worst = std::max(worst, duration);
        ++count;
    }

private:
    const char* what;
    double sum = 0;
    double worst = 0;
    int count = 0;
};

QImage picture(int number) {
    QImage image(pictureSize, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(number % 360, 200, 200));
    return image;
}

/// The last tenth counts: by then the list is nearly as long as it gets.
void listClips(Video* job, int count) {
    const qint64 before = residentBytes();
    {
        Figures figures("clip listed");
        for (int i = 0; i < count; ++i) {
            const auto list = [&] { Q_EMIT job->newClip(i, picture(i), i * 10, i * 10 + 7, i); };
            if (i >= count - count / 10) {
                figures.measure(list);
            } else {
                list();
                if (i % 100 == 0)
                    QCoreApplication::processEvents();
            }
        }
    }
    const qint64 pictureBytes = picture(0).sizeInBytes();
    std::printf("memory of a clip: %.3f MB beside its picture\n",
                (double(residentBytes() - before) / count - double(pictureBytes)) / 1e6);
}

void changeStatus(MainWindowDriver& driver, int count) {
    Figures figures("status changed");
    for (int i = 0; i < count / 10; ++i) {
        figures.measure([&] {
            Clip& clip = driver.clip(i * 7919 % count);
            clip.status = 1 + i % 5;
            clip.updateText();
        });
    }
}

void layOutAll(MainWindowDriver& driver) {
    Figures figures("all clips laid out");
    figures.measure([&] { driver.list().doItemsLayout(); });
}

void removeAll(MainWindowDriver& driver) {
    Figures figures("all clips removed");
    figures.measure([&] { driver.trigger("actionRemoveAll"); });
}

void acceptAll(MainWindowDriver& driver, int count, const QString& file) {
    QStringList files;
    for (int i = 0; i < count; ++i)
        files.append(file);
    driver.setup.addFiles(files);
    Figures figures("Add ALL");
    figures.measure([&] { driver.clickSetup("pushButtonAddAll"); });
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3)
        return 2;
    const int count = atoi(argv[1]);
    const QString file = QFile::decodeName(argv[2]);
    argc = 1;
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    const QTemporaryDir folder;
    QSettings().setValue("export_dir", folder.path());
    MainWindowDriver driver;
    driver.window.show();
    auto* job = new Video("missing.mp4", folder.path(), 1.0, 1.0, 1.0, 0, false, nullptr, nullptr,
                          false, QDateTime());
    driver.accept(job);
    while (!job->hasEnded())
        QCoreApplication::processEvents();
    listClips(job, count);
    changeStatus(driver, count);
    layOutAll(driver);
    layOutAll(driver);
    removeAll(driver);
    acceptAll(driver, count, file);
    return 0;
}
