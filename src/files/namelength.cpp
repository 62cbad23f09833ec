// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "namelength.h"

#include <QFile>

#include <unistd.h>

int longestNameIn(const QString& directory) {
    constexpr int usual = 255;
    const long longest = pathconf(QFile::encodeName(directory).constData(), _PC_NAME_MAX);
    return longest > 0 ? int(longest) : usual;
}

int nameLength(const QString& name) {
    return QFile::encodeName(name).size();
}

QString fittingBeginning(const QString& name, int longest) {
    int end = 0;
    int bytes = 0;
    while (end < name.size()) {
        const bool isPair =
            name[end].isHighSurrogate() && end + 1 < name.size() && name[end + 1].isLowSurrogate();
        const int size = isPair ? 2 : 1;
        bytes += nameLength(name.mid(end, size));
        if (bytes > longest)
            break;
        end += size;
    }
    return name.left(end);
}
