// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optiontext.h"

#include <QByteArray>

#include <cstdio>
#include <functional>
#include <map>

namespace {

// The version and date of the man page come from the build, so that two builds are alike.
const std::map<QByteArray, std::function<QString(const char* version, const char* date)>> makers = {
    {"bash", [](auto, auto) { return bashCompletion(); }},
    {"fields", [](auto, auto) { return markdownFields(); }},
    {"fish", [](auto, auto) { return fishCompletion(); }},
    {"html", [](auto, auto) { return htmlOptionTables(); }},
    {"man", [](auto version, auto date) { return manPage(version, date); }},
    {"markdown", [](auto, auto) { return markdownOptions(); }},
    {"names", [](auto, auto) { return markdownNames(); }},
    {"zsh", [](auto, auto) { return zshCompletion(); }},
};

} // namespace

/// Prints the table of the scanner's options as one of `makers`: KIND VERSION DATE.
int main(int argc, char* argv[]) {
    const auto maker = makers.find(argc == 4 ? argv[1] : "");
    if (maker == makers.end()) {
        std::fputs("usage: makeoptions bash|fields|fish|html|man|markdown|names|zsh VERSION DATE\n",
                   stderr);
        return 2;
    }
    const QByteArray text = maker->second(argv[2], argv[3]).toUtf8();
    const bool isWritten = std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout) ==
                               std::size_t(text.size()) &&
                           std::fflush(stdout) == 0;
    return isWritten ? 0 : 1;
}
