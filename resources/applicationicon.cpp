// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "applicationicon.h"

#include <QtGlobal>

// Outside any namespace and called from here: a static library's resources are linked only if
// something names them.
static void initResources() {
    Q_INIT_RESOURCE(resources);
}

QIcon applicationIcon() {
    initResources();
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/kestrova/%1.png").arg(size), QSize(size, size));
    return icon;
}
