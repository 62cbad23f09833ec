// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

/// A Camtrap DP 1.0 package: what the standard asks for, and what is known beyond that. Times carry
/// their zones.

/// What the camera traps are for, as a person has told it.
struct CamtrapProject {
    QString title;
    QStringList contributors; ///< names of persons or organizations, one or more
    QString samplingDesign;   ///< a word of the standard, such as "opportunistic"
};

/// A camera at its place, as long as it stood there.
struct CamtrapDeployment {
    QString id;
    QString name;           ///< of the place
    double latitude = 0.0;  ///< degrees, -90 to 90, WGS 84
    double longitude = 0.0; ///< degrees, -180 to 180
    QDateTime start;
    QDateTime end;
    bool areTimesDoubtful = false; ///< something had to be supposed to tell them
};

/// A file that a camera made, or that was made from one.
struct CamtrapMedia {
    QString id;
    QString deploymentId;
    QDateTime time;          ///< of its first picture
    QString file;            ///< absolute path
    bool isOfMotion = false; ///< it was made since something moved; else it simply runs
    QString comments;
};

/// An event: something moved. What that was nobody has said yet.
struct CamtrapObservation {
    QString id;
    QString deploymentId;
    QDateTime start;
    QDateTime end;
    QString comments;
};

struct CamtrapPackage {
    CamtrapProject project;
    QString description; ///< empty: there is nothing to say
    QDateTime created;
    QVector<CamtrapDeployment> deployments; ///< one or more
    QVector<CamtrapMedia> media;
    QVector<CamtrapObservation> observations;
};
