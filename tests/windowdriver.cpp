// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The program's windows without a display, driven through standard input and judged by what they
// show.
//
// A command is a line of words; those that name files are percent-encoded. Each is answered by a
// line of JSON that says what is to be seen (see `seen`):
//   setup FILE...    hand the files to job setup
//   press BUTTON     press a button of job setup
//   clips COUNT      list clips that the first clip's recording might also have had
//   select COUNT     select the first clips
//   trigger ACTION   choose from the menu
//   offered          whether the last session is offered
//   goon             go on with it
//   list             also each clip: its recording, number, times, status and file
//   wait SECONDS     answer only when nothing is searched or exported any more, or after this time
// The end of the input ends the program like Quit. Settings come from the settings store. With the
// argument "session" what is listed is kept from run to run, with "docks" all docks are shown.

#include "mainwindowdriver.h"
#include "toolkit.h"

#include <QDockWidget>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>

#include <cstdio>
#include <utility>

#include <unistd.h>

namespace {

// What the worker has found is heard of a little later.
constexpr int settleMilliseconds = 200;
constexpr int tickMilliseconds = 5;

/// The most memory that the process has used since this was last asked, in KiB.
qint64 takePeakMemory() {
    QFile status("/proc/self/status");
    qint64 peak = 0;
    if (status.open(QIODevice::ReadOnly)) {
        const QByteArray text = status.readAll();
        peak = text.mid(text.indexOf("VmHWM:") + 6).trimmed().split(' ')[0].toLongLong();
    }
    QFile reset("/proc/self/clear_refs");
    if (reset.open(QIODevice::WriteOnly))
        reset.write("5");
    return peak;
}

/// Said to be exported, but with nothing behind it, and nobody is told.
bool isLie(const Clip& clip) {
    const QFileInfo file(clip.outputPath);
    return clip.status == Clip::Exported && !(file.exists() && file.size() > 0) &&
           clip.toolTip().isEmpty();
}

class CommandReader : public QObject {
public:
    explicit CommandReader(MainWindowDriver& driver)
        : driver(driver) {
        QObject::connect(&input, &QSocketNotifier::activated, [this] { read(); });
        sinceTick.start();
        startTimer(tickMilliseconds);
    }

protected:
    void timerEvent(QTimerEvent*) override {
        longestFreeze = qMax(longestFreeze, sinceTick.restart());
        if (QWidget* box = QApplication::activeModalWidget()) {
            ++boxes;
            box->close();
        }
        if (waitLimit < 0)
            return;
        if (!isIdle())
            sinceWork.start();
        const bool isDone = sinceWork.elapsed() > settleMilliseconds;
        if (isDone || sinceWait.elapsed() > waitLimit)
            answer(isDone);
    }

private:
    QWidget* offer() { return driver.window.findChild<QPushButton*>("pushButtonGoOn"); }

    void read() {
        char bytes[4096];
        const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0) {
            input.setEnabled(false);
            driver.trigger("actionQuit");
            return;
        }
        pending.append(bytes, int(count));
        for (int end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n')) {
            const QByteArrayList words = pending.left(end).split(' ');
            pending.remove(0, end + 1);
            run(words[0], words.mid(1));
        }
    }

    void run(const QByteArray& command, const QByteArrayList& words) {
        if (command == "wait") {
            waitLimit = qint64(words[0].toDouble() * 1000);
            sinceWait.start();
            sinceWork.start();
            return;
        }
        if (command == "setup")
            setUp(words);
        else if (command == "press")
            driver.clickSetup(words[0].constData());
        else if (command == "clips")
            listClips(words[0].toInt());
        else if (command == "select")
            select(words[0].toInt());
        else if (command == "trigger")
            driver.trigger(words[0].constData());
        else if (command == "goon")
            driver.click("pushButtonGoOn");
        else if (command == "list")
            isListAsked = true;
        else if (command != "offered")
            qFatal("no command %s", command.constData());
        answer(true);
    }

    void setUp(const QByteArrayList& words) {
        QStringList files;
        for (const QByteArray& word : words)
            files.append(QFile::decodeName(QByteArray::fromPercentEncoding(word)));
        driver.setup.addFiles(files);
    }

    void listClips(int count) {
        if (driver.list().count() == 0)
            return;
        Video* job = driver.clip(0).video;
        for (int index = 1000; index < 1000 + count; ++index)
            Q_EMIT job->newClip(index, QImage(320, 240, QImage::Format_RGB32), 0.0, 3.0, 1.0);
    }

    void select(int count) {
        driver.list().clearSelection();
        for (int row = 0; row < qMin(count, driver.list().count()); ++row)
            driver.list().item(row)->setSelected(true);
    }

    int countOf(int status) {
        int count = 0;
        for (int row = 0; row < driver.list().count(); ++row)
            count += driver.clip(row).status == status ? 1 : 0;
        return count;
    }

    bool isIdle() {
        QMetaObject::invokeMethod(&driver.window, "updateStatus");
        return !driver.action("actionCancel").isEnabled() && countOf(Clip::Exporting) == 0 &&
               countOf(Clip::Queued) == 0;
    }

    QJsonArray rows() {
        QJsonArray rows;
        for (int row = 0; row < driver.list().count(); ++row) {
            const Clip& clip = driver.clip(row);
            const QString name = clip.video ? clip.video->shortFileName() : QString();
            rows.append(
                QJsonArray{name, clip.index, clip.start, clip.end, clip.status, clip.outputPath});
        }
        return rows;
    }

    QJsonObject seen(bool isDone) {
        int lies = 0;
        for (int row = 0; row < driver.list().count(); ++row)
            lies += isLie(driver.clip(row)) ? 1 : 0;
        QJsonObject seen{{"done", isDone},
                         {"offered", offer() && offer()->isVisible() && offer()->isEnabled()},
                         {"reading", offer() && offer()->isVisible() && !offer()->isEnabled()},
                         {"setup", driver.setup.isVisible()},
                         {"clips", driver.list().count()},
                         {"waiting", countOf(Clip::Exporting) + countOf(Clip::Queued)},
                         {"exported", countOf(Clip::Exported)},
                         {"failed", countOf(Clip::ExportFailed)},
                         {"lies", lies},
                         {"told", driver.part<QStatusBar>("statusBar").currentMessage()},
                         {"boxes", std::exchange(boxes, 0)},
                         {"freeze", std::exchange(longestFreeze, 0)},
                         {"peak", takePeakMemory()}};
        if (std::exchange(isListAsked, false))
            seen.insert("rows", rows());
        return seen;
    }

    void answer(bool isDone) {
        waitLimit = -1;
        longestFreeze = qMax(longestFreeze, sinceTick.restart());
        std::puts(QJsonDocument(seen(isDone)).toJson(QJsonDocument::Compact).constData());
        std::fflush(stdout);
    }

    MainWindowDriver& driver;
    QSocketNotifier input{STDIN_FILENO, QSocketNotifier::Read};
    QByteArray pending;
    QElapsedTimer sinceTick;
    QElapsedTimer sinceWait;
    QElapsedTimer sinceWork; // seen
    qint64 waitLimit = -1;   // milliseconds; negative when nothing is waited for
    qint64 longestFreeze = 0;
    int boxes = 0;
    bool isListAsked = false;
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova-windowdriver");
    keepToolkitThread();
    MainWindowDriver driver;
    if (QCoreApplication::arguments().contains("session"))
        driver.window.keepSession();
    driver.window.show();
    if (QCoreApplication::arguments().contains("docks")) {
        for (QDockWidget* dock : driver.window.findChildren<QDockWidget*>())
            dock->show();
    }
    const CommandReader reader(driver);
    return QApplication::exec();
}
