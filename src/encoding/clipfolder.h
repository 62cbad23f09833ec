#pragma once

#include <QString>

/// Makes a folder of its own for the clips of one video inside `exportDirectory`.
///
/// Its name is the video's base name, its suffix and the first number from 0 that is free, joined
/// by underscores: "garden_mp4_0"; shortened where the file system takes no name so long. Answers
/// its absolute path; whether it could be made shows only when something is written into it.
QString makeClipFolder(const QString& fileName, const QString& exportDirectory);
