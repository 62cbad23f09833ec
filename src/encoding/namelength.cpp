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

void chopCharacter(QString& name) {
    const QStringView last = QStringView(name).mid(qMax(0, name.size() - 2));
    const bool isPair = last.size() == 2 && last[0].isHighSurrogate() && last[1].isLowSurrogate();
    name.chop(isPair ? 2 : 1);
}
