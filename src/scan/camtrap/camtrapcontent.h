// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrappackage.h"
#include "camtrapsites.h"
#include "recordingstart.h"

#include <QHash>
#include <QString>
#include <QVector>

/// A clip of a recording. Seconds count from its first picture.
struct CamtrapClip {
    int index = 0;
    double start = 0.0; ///< may be negative
    double end = 0.0;
    double snapshotTime = 0.0;
    QString snapshotFile; ///< empty: none was written
    QString exportFile;   ///< empty: it was not exported
};

/// What was found in a recording.
struct CamtrapRecording {
    QString path; ///< absolute
    RecordingStart start;
    double seconds = 0.0; ///< its length
    QString remark;       ///< what is missing of it; empty: nothing
    QVector<CamtrapClip> clips;
};

/// Makes a package of recordings. Names in it depend on their paths alone, so that they are the
/// same in each package of the same recordings, and packages can be put together.
class CamtrapContent {
public:
    explicit CamtrapContent(CamtrapPackage& package)
        : package(package) {}

    /// Adds a recording of which it is known when it began. A second one of its path is left out.
    void add(const CamtrapRecording& recording, const CamtrapSite& site);

private:
    CamtrapDeployment& deploymentAt(const CamtrapSite& site, const RecordingStart& start);
    void addClip(const CamtrapRecording& recording, const CamtrapClip& clip);

    CamtrapPackage& package;
    QString deploymentId; ///< of the recording that is added
    QString recordingId;
    QHash<QString, int> deployments; ///< places in the package by folder
    QHash<QString, bool> recordings; ///< that are in the package, by path
};
