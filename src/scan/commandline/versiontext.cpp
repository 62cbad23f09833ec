// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "versiontext.h"

#include "confinement.h"

QString versionText() {
    const Protections offered = offeredProtections();
    const auto state = [](bool isOffered) {
        return isOffered ? QStringLiteral("yes") : QStringLiteral("no, this system has none");
    };
    return QStringLiteral("kestrova-scan " KESTROVA_VERSION "\n"
                          "confined to its files (Landlock): %1\n"
                          "confined to its system calls (seccomp): %2\n")
        .arg(state(offered.files), state(offered.calls));
}
