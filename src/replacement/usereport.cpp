// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "usereport.h"

#include <utility>

void UseReport::takeLeft(const QString& reason) {
    ++left;
    lastReason = reason;
}

QString UseReport::progress() const {
    const int current = replaced + left + 1;
    if (!isOfMany() || current > expected)
        return {};
    return tr("Replacing clips: recording %1 of %2").arg(current).arg(expected);
}

QString UseReport::end() {
    const UseReport ended = std::exchange(*this, {});
    if (!ended.isOfMany())
        return {};
    const QString done = tr("The clips of %n recordings are replaced", nullptr, ended.replaced);
    return ended.left == 0 ? done
                           : tr("%1, those of %n are not; the last one: %2", nullptr, ended.left)
                                 .arg(done, ended.lastReason);
}
