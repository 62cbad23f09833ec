// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "encoderstand.h"
#include "mainwindowdriver.h"
#include "media.h"

#include <QDir>
#include <QMutex>
#include <QSemaphore>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// Tests of the main window at work: with recordings, a folder to start in, and an encoder that
/// does as it is told.
class WindowTest : public QObject {
protected:
    static constexpr int longMilliseconds = 60000;

    /// Once for all tests of a program, whose settings become those of the window.
    void makeRecordings() {
        QCoreApplication::setOrganizationName("kestrova");
        QCoreApplication::setApplicationName("kestrova");
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        shortRecording = recordings.filePath("short.mp4");
        longRecording = recordings.filePath("long.mp4");
        QVERIFY(media::encode(media::crossingBox(12, 3, 9, "160x120") +
                              QStringList{"-c:v", "mpeg4", shortRecording}));
        QVERIFY(media::encode(
            {"-stream_loop", "400", "-i", shortRecording, "-c", "copy", longRecording}));
    }

    /// Before each test.
    void open() {
        QSettings().clear();
        QSettings().setValue("export_postrecord", 2.0);
        QSettings().setValue("export_minimum", 2.0);
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(folder->path())); // where a person starts the program
        encoder = std::make_unique<EncoderStand>();
        driver = std::make_unique<MainWindowDriver>();
        driver->window.show();
    }

    /// After each test.
    void close() {
        encoder->release();
        QTRY_COMPARE(Clip::exportQueueLength(), 0);
        driver.reset();
        encoder.reset();
        folder.reset();
    }

    Video* makeJob(const QString& fileName, bool autoExport = false) const {
        return new Video(fileName, folder->path(), 1.0, 2.0, 2.0, 0, autoExport, nullptr, nullptr,
                         false, QDateTime());
    }

    /// A job that has been accepted and has failed, so that its clips can be announced by hand.
    Video* failedJob(bool autoExport = false) {
        Video* job = makeJob("missing.mp4", autoExport);
        driver->accept(job);
        [&] { QTRY_COMPARE(int(job->state), int(Video::Failed)); }();
        return job;
    }

    /// Accepts a job that stops at its first clip, as on a disk that does not answer, until `gate`
    /// is unlocked. Answers the thread that it holds.
    QThread* acceptStalled(Video* job) {
        gate.lock();
        connect(
            job, &Video::newClip, job,
            [this] {
                if (QThread::currentThread() == thread())
                    return; // announced by hand
                gateReached.release();
                const QMutexLocker lock(&gate);
            },
            Qt::DirectConnection);
        driver->accept(job);
        [&] { QVERIFY(gateReached.tryAcquire(1, longMilliseconds)); }();
        return job->thread();
    }

    void announceClips(Video* job, int count) {
        QImage snapshot(320, 240, QImage::Format_RGB32);
        snapshot.fill(Qt::green);
        for (int index = 0; index < count; ++index)
            Q_EMIT job->newClip(index, snapshot, index * 10.0, index * 10.0 + 5.0,
                                index * 10.0 + 1.0);
    }

    void tick() { QMetaObject::invokeMethod(&driver->window, "updateStatus"); }

    QMutex gate;
    QSemaphore gateReached;
    QTemporaryDir recordings;
    QString shortRecording;
    QString longRecording;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<EncoderStand> encoder;
    std::unique_ptr<MainWindowDriver> driver;
};
