// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtrapfolder.h"

#include "camtrapmetadata.h"
#include "camtraptables.h"
#include "writing.h"

#include <QDir>

QString writeCamtrapPackage(const CamtrapPackage& package, const QString& folder) {
    const QString place = QDir(folder).absolutePath();
    return writeWholeFiles(place, {{QStringLiteral("deployments.csv"), deploymentsTable(package)},
                                   {QStringLiteral("media.csv"), mediaTable(package, place)},
                                   {QStringLiteral("observations.csv"), observationsTable(package)},
                                   {QStringLiteral("datapackage.json"), camtrapMetadata(package)}});
}
