// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commandlinepaths.h"

#include <filesystem>
#include <system_error>

namespace {

std::string absolutePath(const char* path) {
    if (*path == '\0')
        return path;
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? std::string(path) : absolute.string();
}

} // namespace

CommandLinePaths::CommandLinePaths(int argc, char* argv[])
    : number(argc) {
    for (int i = 0; i < argc; ++i)
        texts.push_back(i == 0 ? std::string(argv[i]) : absolutePath(argv[i]));
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
}
