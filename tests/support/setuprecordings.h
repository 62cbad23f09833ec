// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files.h"
#include "media.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

/// The files that tests of job setup add, in a folder of their own: a.avi to d.avi are recordings,
/// text.avi, empty.avi, pipe.avi, sound.wav and the folder "folder" have no picture.
class SetupRecordings {
public:
    /// Once for all tests of a program, whose settings become those of the window.
    bool make() const {
        QCoreApplication::setOrganizationName("kestrova");
        QCoreApplication::setApplicationName("kestrova");
        return makeRecording("a.avi", 320, 240) && makeRecording("b.avi", 160, 200) &&
               makeRecording("c.avi", 640, 120) && makeRecording("d.avi", 64, 64) &&
               QDir().mkpath(path("folder")) && writeFile(path("text.avi"), "no video\n") &&
               writeFile(path("empty.avi"), {}) &&
               mkfifo(QFile::encodeName(path("pipe.avi")).constData(), 0600) == 0 &&
               media::encode({"-f", "lavfi", "-i", "sine", "-t", "1", path("sound.wav")});
    }

    /// Empties the settings, and makes an export folder for the test that begins, which they name.
    QString startAnew() const {
        const QString exports = path(QStringLiteral("exports-") + QTest::currentTestFunction());
        if (!QDir().mkpath(exports))
            qFatal("no folder for exports");
        QSettings().clear();
        QSettings().setValue("export_dir", exports);
        return exports;
    }

    QString path(const QString& name) const { return folder.filePath(name); }

private:
    bool makeRecording(const QString& name, int width, int height) const {
        const QImage picture = media::grey(width, height, 90);
        return media::encodeGrey(path(name), {picture, picture}, 5, {"-c:v", "mjpeg"});
    }

    QTemporaryDir folder;
};
