// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "systempaths.h"

#include <QCoreApplication>
#include <QFile>

namespace systemPaths {

QStringList programs() {
    // Fonts, locales, time zones and character sets lie below /usr, too.
    return {QStringLiteral("/usr"),   QStringLiteral("/bin"),
            QStringLiteral("/lib"),   QStringLiteral("/lib32"),
            QStringLiteral("/lib64"), QCoreApplication::applicationDirPath()};
}

QStringList readable() {
    QStringList paths = {QStringLiteral("/etc/ld.so.cache"),
                         QStringLiteral("/etc/ld.so.preload"),
                         QStringLiteral("/etc/localtime"),
                         QStringLiteral("/etc/fonts"),
                         QStringLiteral("/etc/gcrypt"),
                         QStringLiteral("/proc/self"),
                         QStringLiteral("/proc/cpuinfo"),
                         QStringLiteral("/proc/meminfo"),
                         QStringLiteral("/proc/filesystems"),
                         QStringLiteral("/proc/sys/crypto"),
                         QStringLiteral("/proc/sys/vm/overcommit_memory"),
                         QStringLiteral("/sys/devices/system/cpu"),
                         QStringLiteral("/sys/devices/system/node"),
                         QStringLiteral("/dev/random"),
                         QStringLiteral("/dev/urandom")};
    // Libraries that somebody has put before those of the system.
    for (const char* variable : {"LD_LIBRARY_PATH", "LD_PRELOAD"}) {
        for (const QByteArray& path : qgetenv(variable).replace(' ', ':').split(':')) {
            if (!path.isEmpty())
                paths += QFile::decodeName(path);
        }
    }
    return paths;
}

QStringList writable() {
    return {QStringLiteral("/dev/null")};
}

} // namespace systemPaths
