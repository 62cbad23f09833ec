// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// Which files a confined process may open, beyond those that every program needs. Paths that are
/// not there are left out; links count as what they lead to.
struct Grants {
    QStringList readable; ///< files, and folders with all below them
    QStringList writable; ///< folders below which files and folders may be made, read, changed and
                          ///< removed
    QStringList programs; ///< may be run, with what lies in the folders of their files
};
