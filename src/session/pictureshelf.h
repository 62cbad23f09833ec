// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QImage>
#include <QSet>
#include <QString>

/// Pictures in a folder, each a PNG file that is named by what it shows: written once, however
/// often it is put there. Lossless. On any thread, one at a time.
class PictureShelf {
public:
    explicit PictureShelf(const QString& folder);

    /// Puts a picture there, in a folder that exists, and answers its name; empty for a null one.
    /// Where it cannot be written `failure` says why, for a person, and is else left alone.
    QString put(const QImage& picture, QString& failure);

    /// Null where it is missing, damaged or none of ours.
    QImage take(const QString& name);

    /// Removes all files but these.
    void keepOnly(const QSet<QString>& names);

private:
    QString pathOf(const QString& name) const { return folder + '/' + name; }
    void list();

    QString folder;
    bool isListed = false;
    QSet<QString> onDisk;          ///< names, once they are listed
    QHash<qint64, QString> nameOf; ///< by QImage::cacheKey
};
