// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "writing.h"

#include <QImage>
#include <QString>

/// Writes `picture` as PNG to `path`, as a whole file. Answers why it could not be written, for a
/// person; empty after a success.
QString writePictureFile(const QImage& picture, const QString& path, FolderLink link);
