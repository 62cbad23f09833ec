// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionreport.h"

#include <QImage>
#include <QString>

/// Where a report lies: its page, and below it the pictures. `folder`: as a person named it.
QString reportPage(const QString& folder);
QString reportPictureFolder(const QString& folder);

/// Writes the picture of `clip`, whose paths begin with `beginning` (SnapshotFolder), and enters it
/// in the clip, relative to `folder`, absolute. Answers why there is none, for a person; empty
/// after a success.
QString writeReportPicture(const QImage& picture, const QString& beginning, const QString& folder,
                           ReportedClip& clip);

/// Writes the page as a whole or not at all. Answers why it could not be written; empty after a
/// success.
QString writeReportPage(const MotionReport& report, const QString& path);
