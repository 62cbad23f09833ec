// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "videoname.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

/// docs/scanner.md lists them, too.
constexpr std::array<std::string_view, 41> extensions = {
    "264", "265",  "3g2",  "3gp",  "asf",  "avc", "avi",  "dav", "divx", "dv",    "f4v",
    "flv", "h264", "h265", "hevc", "ivf",  "m1v", "m2ts", "m2v", "m4v",  "mjpeg", "mjpg",
    "mkv", "mov",  "mp4",  "mpe",  "mpeg", "mpg", "mts",  "mxf", "nut",  "obu",   "ogm",
    "ogv", "qt",   "ts",   "vob",  "webm", "wmv", "wtv",  "y4m",
};

char lowered(char letter) {
    return letter >= 'A' && letter <= 'Z' ? char(letter - 'A' + 'a') : letter;
}

} // namespace

bool isVideoName(std::string_view name) {
    name.remove_prefix(name.rfind('/') + 1); // npos + 1 is 0
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos)
        return false;
    std::string extension(name.substr(dot + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(), lowered);
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}
