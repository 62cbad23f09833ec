// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tour.h"

#include "demoscene.h"
#include "encoderstand.h"
#include "mainwindowdriver.h"
#include "media.h"
#include "visitors.h"

#include <QDockWidget>
#include <QMessageBox>
#include <QPainter>
#include <QProgressBar>
#include <QSettings>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int longMilliseconds = 120000;
constexpr int pictureMilliseconds = 3000; // until the player shows one, and the strip is there
const char recording[] = "yard-sunday.mp4";

/// Someone in a striped pullover.
QImage walker() {
    QImage picture(90, 250, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(45, 245);
    paintWalker(painter);
    return picture;
}

/// The yard for 40 s with three visits, again and again.
bool makeTourRecording() {
    const QString visits =
        "[0][1]overlay=x='-90+(t-4)*230':y=380:enable='between(t,4,10)'[a];"
        "[a][1]overlay=x='1280-(t-17)*260':y=430:enable='between(t,17,22)'[b];"
        "[b][1]overlay=x='300+(t-29)*150':y='640-(t-29)*90':enable='between(t,29,34)',"
        "scale=960:540,noise=alls=3:allf=t,format=yuv420p";
    return demoScene().save("yard.png") && walker().save("walker.png") &&
           media::encode(
               {"-loop",           "1",        "-framerate", "25", "-i",        "yard.png",
                "-loop",           "1",        "-framerate", "25", "-i",        "walker.png",
                "-filter_complex", visits,     "-t",         "40", "-c:v",      "libx264",
                "-preset",         "veryfast", "-g",         "50", "visits.mp4"}) &&
           media::encode({"-stream_loop", "40", "-i", "visits.mp4", "-c", "copy", recording});
}

template<class Condition>
bool waitFor(Condition condition) {
    return QTest::qWaitFor(condition, longMilliseconds);
}

bool take(QWidget& widget, const QDir& images, const char* name) {
    QTest::qWait(100); // for what is laid out later
    return widget.grab().save(images.filePath(name));
}

bool detect(MainWindowDriver& driver) {
    driver.setup.addFile(QDir::current().absoluteFilePath(recording)); // exports change the folder
    driver.setupPart<QLineEdit>("lineEditDir").setText(QDir::currentPath());
    driver.clickSetup("pushButtonAdd");
    const auto& bar = driver.part<QProgressBar>("progressBar");
    return waitFor([&] { return driver.list().count() >= 6 && bar.value() >= 5; });
}

/// Exports what was found; the encoder stands still after the first two.
bool queueExports(MainWindowDriver& driver, EncoderStand& encoder) {
    driver.click("pushButtonCancel");
    const auto& bar = driver.part<QProgressBar>("progressBar");
    if (!waitFor([&] { return !bar.isVisible(); }))
        return false;
    while (driver.list().count() > 6)
        delete driver.list().item(6);
    encoder.hold();
    encoder.releaseOutput("0000.avi");
    encoder.releaseOutput("0001.avi");
    driver.list().selectAll();
    driver.trigger("actionExport_selected");
    driver.list().clearSelection();
    const auto& status = driver.part<QStatusBar>("statusBar");
    return waitFor([&] {
        return driver.clip(2).status == Clip::Exporting &&
               status.currentMessage().startsWith(QString::number(Clip::exportQueueLength()));
    });
}

bool finishExports(MainWindowDriver& driver, EncoderStand& encoder) {
    encoder.release();
    const auto& status = driver.part<QStatusBar>("statusBar");
    return waitFor(
        [&] { return Clip::exportQueueLength() == 0 && status.currentMessage().isEmpty(); });
}

/// All docks, with a clip in the player.
bool takeDocks(MainWindowDriver& driver, const QDir& images) {
    const QSize size = driver.window.size();
    driver.window.resize(1400, 900);
    for (const char* dock : {"dockRecordings", "dockMotion", "dockPlayer"})
        driver.part<QDockWidget>(dock).show();
    driver.list().setCurrentRow(1);
    QTest::qWait(pictureMilliseconds);
    const bool isTaken = take(driver.window, images, "docks.png");
    for (const char* dock : {"dockRecordings", "dockMotion", "dockPlayer"})
        driver.part<QDockWidget>(dock).hide();
    driver.list().clearSelection();
    driver.window.resize(size);
    return isTaken;
}

bool takeAbout(MainWindowDriver& driver, const QDir& images) {
    bool isTaken = false;
    const DialogAnswer<QMessageBox> answer([&](QMessageBox& box) {
        isTaken = take(box, images, "about.png");
        box.accept();
    });
    driver.trigger("actionAbout");
    return isTaken;
}

} // namespace

bool takeTour(const QDir& images) {
    QSettings().setValue("export_postrecord", 2.0);
    QSettings().setValue("export_minimum", 2.0);
    QSettings().setValue("threshold_motion", 0.2);
    const QString directory = QDir::currentPath();
    EncoderStand encoder;
    MainWindowDriver driver;
    driver.window.show();
    const bool isTaken =
        makeTourRecording() && take(driver.window, images, "start.png") && detect(driver) &&
        take(driver.window, images, "detecting.png") && queueExports(driver, encoder) &&
        take(driver.window, images, "exporting.png") && finishExports(driver, encoder) &&
        take(driver.window, images, "exported.png") && takeDocks(driver, images) &&
        takeAbout(driver, images);
    // Exports change it.
    return QDir::setCurrent(directory) && isTaken;
}
