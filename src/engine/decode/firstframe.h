#pragma once

#include <QImage>
#include <QString>

/// The first picture of a video file, for drawing a region of interest on it.
///
/// It has the geometry of the decoded pictures: rotation metadata is not applied. False, with
/// `image` untouched, if no picture can be read. Takes `ffmpegMutex` while it opens the file.
bool grabFirstFrame(const QString& fileName, QImage* image);
