// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobrecord.h"

#include <QImage>
#include <QString>
#include <QVector>

/// A clip of the list. The fields are those of `Clip`.
struct SavedClip {
    int job = 0; ///< its place among the jobs
    int index = 0;
    double start = 0.0;
    double end = 0.0;
    double snapshotTime = 0.0;
    QImage snapshot;
    int status = 0;
    QString outputPath;
    float strength = -1.0F;     ///< -1: not known
    QString joinedFile;         ///< that it shares with others, as the list marks it; empty: none
    QString note;               ///< its tool tip: why its export went wrong
    bool isFileMissing = false; ///< exported, but its file is no longer there; found out by reading
};

/// All that is listed.
struct SavedSession {
    QVector<JobRecord> jobs;
    QVector<SavedClip> clips; ///< as they stand in the list
};
