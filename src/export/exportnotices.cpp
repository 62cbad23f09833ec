// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exportnotices.h"

#include <utility>

ExportNotices& ExportNotices::instance() {
    static ExportNotices notices;
    return notices;
}

void ExportNotices::tell(const QString& notice, Video* video) {
    latest = notice;
    Q_EMIT told(notice);
    if (video)
        Q_EMIT failed(video);
}

QString ExportNotices::takeLatest() {
    return std::exchange(latest, QString());
}
