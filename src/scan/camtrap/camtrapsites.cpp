// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtrapsites.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString absoluteFolder(const QString& folder) {
    return folder.isEmpty() ? folder : QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
}

/// Everything is below a folder without a name.
bool isBelow(const QString& path, const QString& folder) {
    return folder.isEmpty() || folder == QLatin1String("/") || path.startsWith(folder + '/');
}

} // namespace

CamtrapSites::CamtrapSites(const QVector<CamtrapLocation>& locations) {
    for (const CamtrapLocation& location : locations)
        places.append({location, absoluteFolder(location.folder)});
}

std::optional<CamtrapSite> CamtrapSites::siteOf(const QString& recording) {
    const QString path = QDir::cleanPath(recording);
    Place* place = placeOf(path);
    if (!place)
        return std::nullopt;
    place->isIdle = false;
    const QString folder = place->folder.isEmpty() ? QFileInfo(path).path() : place->folder;
    return CamtrapSite{folder, place->told.latitude, place->told.longitude};
}

QStringList CamtrapSites::idle() const {
    QStringList folders;
    for (const Place& place : places) {
        if (place.isIdle && !place.folder.isEmpty())
            folders.append(place.told.folder);
    }
    return folders;
}

CamtrapSites::Place* CamtrapSites::placeOf(const QString& recording) {
    Place* innermost = nullptr;
    for (Place& place : places) {
        const bool isFurtherIn = !innermost || place.folder.size() > innermost->folder.size();
        if (isFurtherIn && isBelow(recording, place.folder))
            innermost = &place;
    }
    return innermost;
}
