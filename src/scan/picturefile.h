#pragma once

#include <QImage>
#include <QString>

/// Writes `picture` as PNG to `path`, over an older file there, as a whole or not at all. Answers
/// why it could not be written, for a person; empty after a success.
QString writePictureFile(const QImage& picture, const QString& path);
