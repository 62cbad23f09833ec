// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scanoptions.h"

/// What a command line asks for.
struct CommandLine {
    enum class Action { Scan, PrintNames, PrintText, Reject };

    Action action = Action::Scan;
    ScanOptions options; ///< with Action::Scan and Action::PrintNames
    QString text;        ///< help or version to print, or why the command line is rejected
};

/// Parses `arguments` (the program's name first). Needs an application object, for its name.
///
/// Reads response files, the mask picture and the list of recordings if they are named, and looks
/// through folders of recordings; touches nothing else.
CommandLine parseCommandLine(const QStringList& arguments);
