// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Keeps a folder for one program: by a lock of the kernel's on a file, which ends with the program
/// however that ends. What the file holds is of no account, and it is never removed. Used on any
/// thread, one at a time.
class FolderLock {
public:
    enum class Outcome { Held, Others, Failed };

    explicit FolderLock(const QString& path);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// After `Failed`, errno says why. Where the file system knows no locks, nobody can be kept
    /// out, and it is held.
    Outcome tryHold();
    bool isHeld() const { return file >= 0; }

private:
    Outcome open();

    QString path;
    int file = -1;
};
