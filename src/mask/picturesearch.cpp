// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturesearch.h"

#include "firstframe.h"

#include <QFileInfo>

#include <algorithm>
#include <new>
#include <vector>

namespace {

using Searches = std::vector<std::unique_ptr<PictureSearch>>;

/// Keeps those reachable that outlive the program. Never destroyed itself.
Searches& abandoned() {
    static auto* searches = new Searches;
    return *searches;
}

void freeEnded(Searches& searches) {
    const auto hasEnded = [](const auto& search) { return search->wait(0); };
    searches.erase(std::remove_if(searches.begin(), searches.end(), hasEnded), searches.end());
}

} // namespace

bool grabPicture(const QString& path, QImage* image) {
    return QFileInfo(path).isFile() && grabFirstFrame(path, image);
}

void PictureSearch::abandon(std::unique_ptr<PictureSearch> search) {
    search->requestInterruption();
    abandoned().push_back(std::move(search));
    freeEnded(abandoned());
}

bool PictureSearch::isAnyAbandoned() {
    freeEnded(abandoned());
    return !abandoned().empty();
}

/// Without memory for one file it ends with that; who asked for it looks at the others.
void PictureSearch::run() {
    try {
        search();
    } catch (const std::bad_alloc&) {
        qWarning("out of memory while looking for a picture");
    }
}

void PictureSearch::search() {
    for (const QString& file : files) {
        if (isInterruptionRequested())
            return;
        ++tried;
        if (grabPicture(file, &picture))
            return;
    }
}
