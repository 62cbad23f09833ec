// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "foreignlink.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Link {
    bool isThere = false;
    uid_t owner = 0;
};

Link linkAt(const QString& path) {
    QByteArray name = QFile::encodeName(path);
    while (name.size() > 1 && name.endsWith('/')) // which would mean what it leads to
        name.chop(1);
    struct stat entry = {};
    const bool isThere = lstat(name.constData(), &entry) == 0 && S_ISLNK(entry.st_mode);
    return {isThere, entry.st_uid};
}

} // namespace

bool isLink(const QString& path) {
    return linkAt(path).isThere;
}

bool isForeignLink(const QString& path) {
    const Link link = linkAt(path);
    return link.isThere && link.owner != 0 && link.owner != geteuid();
}
