// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes the recordings that the tests are shipped with. Usage: kestrova_recordings FOLDER

#include "camera.h"
#include "media.h"
#include "stories.h"

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QTemporaryFile>

#include <algorithm>
#include <iterator>

namespace {

struct Recording {
    const char* fileName;
    QSize size;
    double picturesPerSecond;
    double seconds;
    void (*paint)(QPainter& painter, double t);
    double (*light)(double t);
    QStringList encoding;
};

QImage scene(const Recording& recording, double t) {
    QImage picture(recording.size, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(picture.width() / 1280.0, picture.height() / 720.0);
    recording.paint(painter, t);
    return picture;
}

bool make(const Recording& recording, const QDir& folder) {
    QTemporaryFile raw;
    if (!raw.open())
        return false;
    Camera camera;
    const int count = int(recording.seconds * recording.picturesPerSecond);
    for (int i = 0; i < count; ++i) {
        const double t = i / recording.picturesPerSecond;
        const QImage picture = camera.picture(scene(recording, t), recording.light(t));
        raw.write(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes());
    }
    raw.close();
    const QString size = QString("%1x%2").arg(recording.size.width()).arg(recording.size.height());
    const QStringList pictures = {
        "-f", "rawvideo",    "-pix_fmt", "bgr0",
        "-s", size,          "-r",       QString::number(recording.picturesPerSecond),
        "-i", raw.fileName()};
    return media::encode(pictures + recording.encoding +
                         QStringList{folder.filePath(recording.fileName)});
}

const QStringList quietSound = {"-f", "lavfi", "-i", "anoisesrc=amplitude=0.02:seed=3",
                                "-shortest"};

const Recording recordings[] = {
    {"garden.mp4",
     {480, 270},
     12.5,
     24.0,
     paintGarden,
     gardenLight,
     quietSound + QStringList{"-c:v",    "libx264", "-threads", "1",    "-pix_fmt",
                              "yuv420p", "-preset", "medium",   "-crf", "28",
                              "-bf",     "3",       "-g",       "50",   "-c:a",
                              "aac",     "-b:a",    "24k",      "-ac",  "1"}},
    {"gate.avi",
     {320, 180},
     10.0,
     30.0,
     paintGate,
     gateLight,
     quietSound + QStringList{"-c:v", "mpeg4", "-q:v", "6", "-g", "20", "-c:a", "libmp3lame",
                              "-b:a", "24k", "-ac", "1", "-ar", "22050"}},
    // Full speed only while something moves.
    {"night.mkv",
     {384, 216},
     25.0,
     18.0,
     paintNight,
     nightLight,
     {"-vf",
      "select='lt(t,5)+gte(t,11)+not(mod(n,5))'",
      "-fps_mode",
      "vfr",
      "-c:v",
      "libx264",
      "-threads",
      "1",
      "-pix_fmt",
      "yuv420p",
      "-preset",
      "veryfast",
      "-crf",
      "28",
      "-bf",
      "0",
      "-g",
      "100",
      "-output_ts_offset",
      "2.5"}},
};

/// A free region in the lower left, where the drive is; green as the mask editor draws it.
bool makeMask(const Recording& recording, const QDir& folder) {
    QImage mask(recording.size, QImage::Format_ARGB32);
    mask.fill(Qt::transparent);
    QPainter painter(&mask);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::green);
    painter.scale(mask.width() / 1280.0, mask.height() / 720.0);
    painter.drawEllipse(150, 300, 500, 380);
    return mask.save(folder.filePath(QString("expected/%1.mask.png").arg(recording.fileName)));
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        qFatal("Usage: kestrova_recordings FOLDER");
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    return std::all_of(std::begin(recordings), std::end(recordings),
                       [&](const Recording& recording) {
                           return make(recording, folder) && makeMask(recording, folder);
                       })
               ? 0
               : 1;
}
