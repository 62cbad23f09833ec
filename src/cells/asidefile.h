// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

/// Where in a file bytes are. Who made it keeps the file open for as long as it lives.
struct FilePlace {
    int descriptor;
    std::int64_t offset;
    std::size_t size;
};

using FilePlacePointer = std::shared_ptr<const FilePlace>;

/// The bytes at a place; false where they cannot be read.
bool readAt(const FilePlace& place, std::vector<std::uint8_t>& bytes);

/// A file for what need not be in memory. It has no name, and is gone with the program, whatever
/// way that ends. It lies where TMPDIR says, else in /var/tmp, since /tmp may be memory itself, and
/// there only where nothing else can be written.
///
/// Any thread may call anything.
class AsideFile {
public:
    /// The one of the program.
    static AsideFile& instance();

    AsideFile() = default;
    ~AsideFile(); ///< no place may be left
    AsideFile(const AsideFile&) = delete;
    AsideFile& operator=(const AsideFile&) = delete;

    /// Makes the file, if that was not tried before: for programs that cannot open files later on.
    /// False where there is none.
    bool open();

    /// Puts bytes where they are until nobody holds their place any more. Null where there is no
    /// file, or no room.
    FilePlacePointer put(const std::vector<std::uint8_t>& bytes);

private:
    FilePlace reserve(std::size_t size);
    void release(const FilePlace& place);

    std::once_flag tried;
    int descriptor = -1; ///< -1: there is none

    std::mutex mutex; ///< of what follows
    std::int64_t end = 0;
    std::int64_t used = 0; ///< bytes of all places, each up to the next page
};
