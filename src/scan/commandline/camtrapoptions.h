// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrappackage.h"

#include <QString>
#include <QVector>

/// Where the recordings below a folder were made.
struct CamtrapLocation {
    QString folder;         ///< as it was named; empty: all that lie below no other
    double latitude = 0.0;  ///< degrees, -90 to 90
    double longitude = 0.0; ///< degrees, -180 to 180
};

/// What is asked about a Camtrap DP package.
struct CamtrapOptions {
    QString directory; ///< empty: none is wanted
    CamtrapProject project;
    QVector<CamtrapLocation> locations;
};
