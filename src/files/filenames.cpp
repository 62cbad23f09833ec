// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenames.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <string>
#include <unistd.h>

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

int longestNameIn(const QString& directory) {
    constexpr int usual = 255;
    const long longest = pathconf(QFile::encodeName(directory).constData(), _PC_NAME_MAX);
    return longest > 0 ? int(longest) : usual;
}

int nameLength(const QString& name) {
    return QFile::encodeName(name).size();
}

QString fittingBeginning(const QString& name, int longest) {
    int end = 0;
    int bytes = 0;
    while (end < name.size()) {
        const bool isPair =
            name[end].isHighSurrogate() && end + 1 < name.size() && name[end + 1].isLowSurrogate();
        const int size = isPair ? 2 : 1;
        bytes += nameLength(name.mid(end, size));
        if (bytes > longest)
            break;
        end += size;
    }
    return name.left(end);
}

QByteArray encodedPath(const QString& path) {
    return QFile::encodeName(path).toPercentEncoding("/");
}

QByteArray encodedFileUrl(const QString& path) {
    return "file://" + encodedPath(path);
}

QUrl fileUrl(const QString& path) {
    // QUrl decodes letters and blanks itself, but none of these.
    const QByteArray kept = "/!$&'()*+,;=:@[]";
    return QUrl::fromEncoded("file:///" + QFile::encodeName(path).toPercentEncoding(kept));
}
