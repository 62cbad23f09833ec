// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>

#include <memory>

class BusyCursor;
class PictureSearch;

/// The files that wait to be set up, and the search for the next one that has a picture.
///
/// Files without one are dropped silently; pipes, devices and the like are never opened, since that
/// could wait for ever. Many files take their time: the search then goes on beside the event loop,
/// on a thread that ends with it, under a busy cursor.
class PendingFiles : public QObject {
    Q_OBJECT

public:
    PendingFiles();
    ~PendingFiles() override;

    void append(const QStringList& paths);

    /// Drops the first file that waits, if there is one.
    void dropFirst();

    /// All that wait; none is left here.
    QStringList takeAll();

    /// Looks for the next file with a picture. The answer is one of the signals, at once unless the
    /// search takes longer; a search that goes on then ends.
    void showNext();

    bool isSearching() const { return bool(search); }

    /// The file that was looked at last: the one on show, if any is.
    const QString& current() const { return file; }

    /// The files since none waited, and the place of `current` among them, from 1.
    int count() const { return counted; }
    int place() const { return counted - files.size(); }

    /// Whether a search that nobody waits for any more still has a file in hand, which may lie on a
    /// disk that is slow to answer.
    static bool isAnyAbandoned();

Q_SIGNALS:
    /// A search begins that takes longer, or has ended; then one of the others follows.
    void searching(bool isSearching);
    void found(const QImage& picture);
    void exhausted();

    /// This file has no picture, and was dropped.
    void dropped(const QString& path);

private:
    void setSearching(bool isSearching);
    void startSearch();
    void endSearch();

    QStringList files; ///< first = next
    QString file;
    int counted = 0;
    std::unique_ptr<PictureSearch> search; ///< among the first of `files`
    std::unique_ptr<BusyCursor> busyCursor;
};
