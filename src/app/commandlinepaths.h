// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

/// A command line whose arguments, all of them paths, are absolute.
///
/// The first export changes the program's current directory, and a relative path would then no
/// longer be found. It also keeps the application object from taking a path for one of its options.
class CommandLinePaths {
public:
    /// The first argument, the program's name, and empty ones stay as they are.
    CommandLinePaths(int argc, char* argv[]);

    /// Both stay valid, and may be changed, as long as this object exists.
    int& count() { return number; }
    char** arguments() { return pointers.data(); }

private:
    std::vector<std::string> texts;
    std::vector<char*> pointers; ///< ends with a null
    int number;
};
