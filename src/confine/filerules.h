// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

/// Which files a confined process may open, beyond those that every program needs. Paths that are
/// not there are left out; links count as what they lead to.
struct Grants {
    QStringList readable; ///< files, and folders with all below them
    QStringList writable; ///< folders below which files and folders may be made, read, changed and
                          ///< removed
    QStringList programs; ///< may be run, with what lies in the folders of their files
};

/// A ruleset of Landlock: see landlock(7). It says what may be opened, not what may be looked for:
/// names, sizes and times of files can still be asked for.
class FileRules {
public:
    explicit FileRules(const Grants& grants);
    ~FileRules();
    FileRules(const FileRules&) = delete;
    FileRules& operator=(const FileRules&) = delete;

    /// Of the kernel's Landlock, from 1; 0 where there is none.
    static int offeredVersion();

    /// As those of `Confinement`.
    const QString& failure() const { return reason; }
    int apply() const noexcept;

private:
    void allow(const QStringList& paths, std::uint64_t access);
    void allow(const QString& path, std::uint64_t access);
    void giveUp();

    int ruleset = -1; ///< a descriptor; -1: there is none, nothing is applied
    std::uint64_t handled = 0;
    QString reason;
};
