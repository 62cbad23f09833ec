// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "linereader.h"

#include "regularfile.h"

#include <cstring>

namespace {

// The longest line holds a path, each of whose bytes may take three.
constexpr int bufferSize = 64 * 1024;

} // namespace

bool LineReader::open(const QString& path) {
    buffer.resize(bufferSize);
    return openRegularFile(path, file, error);
}

std::optional<std::string_view> LineReader::next() {
    int searched = begin;
    for (;;) {
        const char* data = buffer.constData();
        const void* found = std::memchr(data + searched, '\n', std::size_t(end - searched));
        if (found) {
            const int lineEnd = int(static_cast<const char*>(found) - data);
            const std::string_view line(data + begin, std::size_t(lineEnd - begin));
            begin = lineEnd + 1;
            return line;
        }
        const int kept = end - begin;
        if (!fill())
            return std::nullopt;
        searched = kept; // what was kept lies at the buffer's start now
    }
}

/// Reads on behind what is left of the last line. False at the end of the file and on errors.
bool LineReader::fill() {
    const int kept = end - begin;
    if (kept == buffer.size()) {
        error = QStringLiteral("a line in it is too long");
        return false;
    }
    std::memmove(buffer.data(), buffer.constData() + begin, std::size_t(kept));
    begin = 0;
    end = kept;
    const qint64 read = file.read(buffer.data() + end, buffer.size() - end);
    if (read < 0)
        error = file.errorString();
    else if (read == 0 && kept > 0)
        error = QStringLiteral("it ends within a line");
    if (read <= 0)
        return false;
    end += int(read);
    return true;
}
