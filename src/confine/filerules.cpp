// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filerules.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// What newer versions know than the system's headers may: landlock(7).
constexpr std::uint64_t refer = 1ULL << 13;        // from version 2 on
constexpr std::uint64_t truncateFile = 1ULL << 14; // 3
constexpr std::uint64_t useDevice = 1ULL << 15;    // 5
constexpr std::uint64_t bindAndConnect = 3;        // 4, a word of its own
constexpr std::uint64_t socketsAndSignals = 3;     // 6, another one

struct RulesetAttributes {
    std::uint64_t files;
    std::uint64_t network;
    std::uint64_t scopes;
};

constexpr std::uint64_t readFile = LANDLOCK_ACCESS_FS_READ_FILE;
constexpr std::uint64_t readAll = readFile | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t runAll = readAll | LANDLOCK_ACCESS_FS_EXECUTE;
constexpr std::uint64_t writeFile = LANDLOCK_ACCESS_FS_WRITE_FILE | truncateFile;
constexpr std::uint64_t writeAll = readAll | writeFile | LANDLOCK_ACCESS_FS_MAKE_REG |
                                   LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_REMOVE_FILE |
                                   LANDLOCK_ACCESS_FS_REMOVE_DIR | refer;
constexpr std::uint64_t ofFiles = readFile | writeFile | useDevice | LANDLOCK_ACCESS_FS_EXECUTE;

/// All that the kernel's version can refuse.
RulesetAttributes handledBy(int version) {
    RulesetAttributes all = {};
    all.files = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1) - 1;
    all.files |= version >= 2 ? refer : 0;
    all.files |= version >= 3 ? truncateFile : 0;
    all.files |= version >= 5 ? useDevice : 0;
    all.network = version >= 4 ? bindAndConnect : 0;
    all.scopes = version >= 6 ? socketsAndSignals : 0;
    return all;
}

// What programs need of the system, whatever they do: libraries, their data, and facts about the
// machine. Not all of it is on every system.

/// Folders: read, and run.
QStringList systemPrograms() {
    // Fonts, locales, time zones and character sets lie below /usr, too.
    return {QStringLiteral("/usr"),   QStringLiteral("/bin"),
            QStringLiteral("/lib"),   QStringLiteral("/lib32"),
            QStringLiteral("/lib64"), QCoreApplication::applicationDirPath()};
}

constexpr const char* readableFiles[] = {
    // what the loader and the libraries are told
    "/etc/ld.so.cache", "/etc/ld.so.preload", "/etc/localtime", "/etc/fonts", "/etc/gcrypt",
    // what they ask of the machine
    "/proc/self", "/proc/cpuinfo", "/proc/meminfo", "/proc/filesystems", "/proc/sys/crypto",
    "/proc/sys/vm/overcommit_memory", "/sys/devices/system/cpu", "/sys/devices/system/node",
    "/dev/random", "/dev/urandom"};

/// Files and folders.
QStringList systemReadable() {
    QStringList paths;
    for (const char* path : readableFiles)
        paths += QString::fromLatin1(path);
    // Libraries that somebody has put before those of the system.
    for (const char* variable : {"LD_LIBRARY_PATH", "LD_PRELOAD"}) {
        for (const QByteArray& path : qgetenv(variable).replace(' ', ':').split(':')) {
            if (!path.isEmpty())
                paths += QFile::decodeName(path);
        }
    }
    return paths;
}

} // namespace

int FileRules::offeredVersion() {
    const long version =
        syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    return version > 0 ? int(version) : 0;
}

FileRules::FileRules(const Grants& grants) {
    const int version = offeredVersion();
    if (version == 0)
        return;
    const RulesetAttributes attributes = handledBy(version);
    handled = attributes.files;
    ruleset = int(syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0));
    if (ruleset < 0)
        giveUp();
    allow(systemPrograms(), runAll);
    allow(systemReadable(), readAll);
    allow(QStringLiteral("/dev/null"), readFile | writeFile | useDevice);
    for (const QString& program : grants.programs)
        allow(QFileInfo(QFileInfo(program).canonicalFilePath()).path(), runAll);
    allow(grants.readable, readAll);
    allow(grants.writable, writeAll);
}

FileRules::~FileRules() {
    if (ruleset >= 0)
        close(ruleset);
}

int FileRules::apply() const noexcept {
    if (ruleset < 0 || syscall(SYS_landlock_restrict_self, ruleset, 0) == 0)
        return 0;
    return errno;
}

void FileRules::allow(const QStringList& paths, std::uint64_t access) {
    for (const QString& path : paths)
        allow(path, access);
}

void FileRules::allow(const QString& path, std::uint64_t access) {
    if (ruleset < 0)
        return;
    landlock_path_beneath_attr rule = {};
    rule.parent_fd = open(QFile::encodeName(path).constData(), O_PATH | O_CLOEXEC);
    if (rule.parent_fd < 0) // whoever opens it hears why
        return;
    struct stat found = {};
    const bool isFolder = fstat(rule.parent_fd, &found) == 0 && S_ISDIR(found.st_mode);
    rule.allowed_access = access & handled & (isFolder ? ~0ULL : ofFiles);
    const bool isAdded =
        syscall(SYS_landlock_add_rule, ruleset, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
    // A pipe without a name is no matter of rules: whoever has it may open it again.
    if (!isAdded && errno != EBADFD)
        giveUp();
    close(rule.parent_fd);
}

/// Half the rules would refuse what is to be read.
void FileRules::giveUp() {
    reason = QStringLiteral("Landlock: ") + qt_error_string(errno);
    if (ruleset >= 0)
        close(ruleset);
    ruleset = -1;
}
