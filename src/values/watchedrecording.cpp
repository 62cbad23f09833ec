// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "watchedrecording.h"

#include <QFile>

#include <utility>

namespace {

bool isSame(const timespec& left, const timespec& right) {
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

/// The time of the last change tells of everything, also of a content that was written with the old
/// time of modification.
bool isSame(const struct stat& left, const struct stat& right) {
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino &&
           left.st_size == right.st_size && isSame(left.st_mtim, right.st_mtim) &&
           isSame(left.st_ctim, right.st_ctim);
}

} // namespace

WatchedRecording::WatchedRecording(RecordingStamp stamp, Measured measured)
    : stamp(std::move(stamp))
    , measured(measured) {}

WatchedRecording::State WatchedRecording::state() {
    struct stat now {};
    if (stat(stamp.path.constData(), &now) != 0 || !S_ISREG(now.st_mode))
        return State::Gone;
    if (!hasLast || !isSame(now, last))
        lastState = compare();
    hasLast = true;
    last = now;
    return lastState;
}

QString WatchedRecording::flaw() {
    switch (state()) {
    case State::Gone:
        return QStringLiteral("it is no longer there");
    case State::Changed:
        return stamp.digest.isEmpty()
                   ? QStringLiteral("its values have no digest to compare it with; --values "
                                    "measures it anew")
                   : QStringLiteral("it has changed since it was measured");
    default:
        return {};
    }
}

WatchedRecording::State WatchedRecording::compare() const {
    const auto found = stampOf(QFile::decodeName(stamp.path));
    if (!found)
        return State::Gone;
    if (measured == Measured::Before)
        return *found == stamp && !stamp.digest.isEmpty() ? State::Same : State::Changed;
    // Where a disk failed at a sample, size and time are all there is to compare.
    const bool isComparable = !stamp.digest.isEmpty();
    if (found->bytes == stamp.bytes && found->modified == stamp.modified &&
        (!isComparable || found->digest == stamp.digest))
        return State::Same;
    const bool hasGrown = isComparable && found->bytes > stamp.bytes &&
                          digestOf(stamp.path, stamp.bytes) == stamp.digest;
    return hasGrown ? State::Grown : State::Changed;
}
