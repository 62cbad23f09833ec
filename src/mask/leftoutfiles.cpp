// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "leftoutfiles.h"

void LeftOutFiles::add(const QString& file) {
    if (known.contains(file))
        return;
    known.insert(file);
    files.append(file);
    Q_EMIT changed();
}

void LeftOutFiles::remove(const QStringList& those) {
    bool isChanged = false;
    for (const QString& file : those) {
        if (known.remove(file))
            isChanged = files.removeOne(file);
    }
    if (isChanged)
        Q_EMIT changed();
}

QStringList LeftOutFiles::take() {
    QStringList taken = files;
    files.clear();
    known.clear();
    Q_EMIT changed();
    return taken;
}
