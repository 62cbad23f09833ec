// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrapoptions.h"

#include <QString>
#include <QStringList>

#include <optional>

/// One camera at its place, as far as folders tell: recordings below a folder that a person has
/// told the location of are its, all others belong to the folder that they lie in.
struct CamtrapSite {
    QString folder; ///< absolute
    double latitude = 0.0;
    double longitude = 0.0;
};

/// Which recordings were made at which site.
class CamtrapSites {
public:
    explicit CamtrapSites(const QVector<CamtrapLocation>& locations);

    /// Of the recording at this absolute path; nothing: its location was not told. Of folders
    /// within each other the innermost counts.
    std::optional<CamtrapSite> siteOf(const QString& recording);

    /// The folders, as they were named, below which no recording was asked for.
    QStringList idle() const;

private:
    struct Place {
        CamtrapLocation told;
        QString folder; ///< absolute; empty: all others
        bool isIdle = true;
    };
    Place* placeOf(const QString& recording);

    QVector<Place> places;
};
