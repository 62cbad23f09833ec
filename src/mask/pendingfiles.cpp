// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pendingfiles.h"

#include "busycursor.h"
#include "firstframe.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace {

constexpr int longestLookMilliseconds = 40; // with one more file it stays below 100, as a rule
constexpr int pauseMilliseconds = 100;

bool grabPicture(const QString& path, QImage* image) {
    return QFileInfo(path).isFile() && grabFirstFrame(path, image);
}

} // namespace

/// Looks for the first of many files that has a picture.
class PictureSearch : public QThread {
public:
    explicit PictureSearch(const QStringList& files)
        : files(files) {}

    // The result, once the thread has ended.
    int tried = 0;  ///< files, from the first on; the last one has the picture
    QImage picture; ///< null if no file has one

protected:
    /// Without memory for one file it ends with that; who asked for it looks at the others.
    void run() override {
        try {
            while (picture.isNull() && tried < files.size() && !isInterruptionRequested())
                grabPicture(files[tried++], &picture);
        } catch (const std::bad_alloc&) {
            qWarning("out of memory while looking for a picture");
        }
    }

private:
    const QStringList files;
};

namespace {

using Searches = std::vector<std::unique_ptr<PictureSearch>>;

/// Keeps those reachable that outlive the program, less those that have ended. Never destroyed
/// itself.
Searches& abandoned() {
    static auto* searches = new Searches;
    const auto hasEnded = [](const auto& search) { return search->wait(0); };
    searches->erase(std::remove_if(searches->begin(), searches->end(), hasEnded), searches->end());
    return *searches;
}

/// Ends a search without waiting for the file in hand.
void abandon(std::unique_ptr<PictureSearch> search) {
    search->requestInterruption();
    abandoned().push_back(std::move(search));
}

} // namespace

PendingFiles::PendingFiles() = default;

PendingFiles::~PendingFiles() {
    if (search)
        abandon(std::move(search));
}

void PendingFiles::append(const QStringList& paths) {
    counted += paths.size();
    files.append(paths);
}

void PendingFiles::dropFirst() {
    if (!files.isEmpty())
        files.removeFirst();
}

QStringList PendingFiles::takeAll() {
    return std::exchange(files, {});
}

void PendingFiles::showNext() {
    const QDeadlineTimer deadline(longestLookMilliseconds);
    while (!files.isEmpty()) {
        if (deadline.hasExpired()) {
            startSearch();
            return;
        }
        file = files.takeFirst();
        QImage picture;
        if (grabPicture(file, &picture)) {
            setSearching(false);
            Q_EMIT found(picture);
            return;
        }
        Q_EMIT dropped(file);
    }
    setSearching(false);
    counted = 0;
    Q_EMIT exhausted();
}

bool PendingFiles::isAnyAbandoned() {
    return !abandoned().empty();
}

void PendingFiles::setSearching(bool isSearching) {
    if (search && !isSearching)
        abandon(std::move(search));
    if (isSearching == bool(busyCursor))
        return;
    busyCursor = isSearching ? std::make_unique<BusyCursor>() : nullptr;
    Q_EMIT searching(isSearching);
}

void PendingFiles::startSearch() {
    setSearching(true);
    search = std::make_unique<PictureSearch>(files);
    connect(search.get(), &QThread::finished, this, [this] { endSearch(); });
    search->start();
    if (!search->isRunning()) // no thread was to be had, or it has ended already
        QTimer::singleShot(0, this, [this] { endSearch(); });
}

void PendingFiles::endSearch() {
    if (!search || search->isRunning())
        return; // one that was abandoned has ended
    if (QApplication::activeModalWidget()) {
        // What comes to the front now would cover the dialog that has to be answered first.
        QTimer::singleShot(pauseMilliseconds, this, [this] { endSearch(); });
        return;
    }
    search->wait();
    const QImage picture = search->picture;
    for (; search->tried > 0; --search->tried) {
        file = files.takeFirst();
        if (search->tried > 1 || picture.isNull())
            Q_EMIT dropped(file);
    }
    search.reset();
    if (picture.isNull()) {
        showNext(); // without a thread the next few, else those that were added meanwhile
    } else {
        setSearching(false);
        Q_EMIT found(picture);
    }
}
