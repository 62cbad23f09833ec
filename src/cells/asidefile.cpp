// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "asidefile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

constexpr std::int64_t page = 4096; // what a disk can be given back

std::int64_t wholePages(std::size_t size) {
    return (std::int64_t(size) + page - 1) / page * page;
}

/// -1 where none can be made.
int openUnnamed(const std::string& folder) {
    const int descriptor = ::open(folder.c_str(), O_TMPFILE | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
    if (descriptor >= 0)
        return descriptor;
    std::string name = folder + "/kestrova-XXXXXX"; // not every file system has unnamed ones
    const int named = mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0)
        unlink(name.c_str());
    return named;
}

int openAnywhere() {
    const char* asked = std::getenv("TMPDIR");
    if (asked && *asked != '\0') {
        const int descriptor = openUnnamed(asked);
        if (descriptor >= 0)
            return descriptor;
    }
    const int descriptor = openUnnamed("/var/tmp");
    return descriptor >= 0 ? descriptor : openUnnamed("/tmp");
}

/// Takes all of `size` bytes there with `call`, which is that for a part of them.
template<typename Call>
bool goThrough(std::size_t size, const Call& call) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t part = call(done, size - done);
        if (part > 0)
            done += std::size_t(part);
        else if (part == 0 || errno != EINTR)
            return false;
    }
    return true;
}

bool writeAt(const FilePlace& place, const std::vector<std::uint8_t>& bytes) {
    return goThrough(place.size, [&](std::size_t done, std::size_t left) {
        return pwrite(place.descriptor, bytes.data() + done, left,
                      place.offset + std::int64_t(done));
    });
}

} // namespace

bool readAt(const FilePlace& place, std::vector<std::uint8_t>& bytes) {
    bytes.resize(place.size);
    return goThrough(place.size, [&](std::size_t done, std::size_t left) {
        return pread(place.descriptor, bytes.data() + done, left,
                     place.offset + std::int64_t(done));
    });
}

/// Never destroyed: a thread that was given up may still hold places while the program ends.
AsideFile& AsideFile::instance() {
    static auto* const file = new AsideFile;
    return *file;
}

AsideFile::~AsideFile() {
    if (descriptor >= 0)
        close(descriptor);
}

bool AsideFile::open() {
    std::call_once(tried, [this] { descriptor = openAnywhere(); });
    return descriptor >= 0;
}

FilePlacePointer AsideFile::put(const std::vector<std::uint8_t>& bytes) {
    if (!open())
        return nullptr;
    const FilePlacePointer place(new FilePlace(reserve(bytes.size())),
                                 [this](const FilePlace* old) {
                                     release(*old);
                                     delete old;
                                 });
    return writeAt(*place, bytes) ? place : nullptr;
}

FilePlace AsideFile::reserve(std::size_t size) {
    const std::lock_guard<std::mutex> lock(mutex);
    const FilePlace place{descriptor, end, size};
    end += wholePages(size);
    used += wholePages(size);
    return place;
}

/// Where a file system cannot give back a part of a file, it does so when nothing is used.
void AsideFile::release(const FilePlace& place) {
    const std::int64_t bytes = wholePages(place.size);
    const std::lock_guard<std::mutex> lock(mutex);
    used -= bytes;
    if (used == 0 && ftruncate(descriptor, 0) == 0)
        end = 0;
    else
        fallocate(descriptor, FALLOC_FL_PUNCH_HOLE | FALLOC_FL_KEEP_SIZE, place.offset, bytes);
}
