// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QStringList>
#include <QThread>

#include <memory>

/// Whether `image` got the first picture of the file. Pipes, devices and the like are never opened:
/// that could wait for ever.
bool grabPicture(const QString& path, QImage* image);

/// Looks for the first of many files that has a picture, on a thread that ends with the search.
class PictureSearch : public QThread {
public:
    explicit PictureSearch(const QStringList& files)
        : files(files) {}

    /// Ends a search without waiting for the file in hand, which may lie on a disk that is slow to
    /// answer. The object is freed some time after its thread has ended.
    static void abandon(std::unique_ptr<PictureSearch> search);

    /// Whether one that was abandoned still has a file in hand. GUI thread only, as `abandon`.
    static bool isAnyAbandoned();

    // The result, once the thread has ended.
    int tried = 0;  ///< files, from the first on; the last one has the picture
    QImage picture; ///< null if no file has one

protected:
    void run() override;

private:
    void search();

    const QStringList files;
};
