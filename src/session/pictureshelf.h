// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QImage>
#include <QSet>
#include <QString>

#include <atomic>

/// Pictures in a folder, each a PNG file that is named by what it shows: written once, however
/// often it is put there. Lossless. On any thread, one at a time.
class PictureShelf {
public:
    explicit PictureShelf(const QString& folder);

    /// The name that a picture has there, or would have; empty for a null one.
    QString nameOf(const QImage& picture);

    /// Puts a picture there, in a folder that exists. Answers why it cannot be written, for a
    /// person; empty after a success, and where it is there already.
    QString put(const QImage& picture);

    /// Null where it is missing, damaged or none of ours.
    QImage take(const QString& name);

    /// Removes all files but these. What is left when it is given up goes the next time: thousands
    /// of files take seconds.
    void keepOnly(const QSet<QString>& wanted, const std::atomic<bool>& isGivenUp);

private:
    QString pathOf(const QString& name) const { return folder + '/' + name; }
    void list();

    QString folder;
    bool isListed = false;
    QSet<QString> onDisk;         ///< names, once they are listed
    QHash<qint64, QString> names; ///< by QImage::cacheKey
};
