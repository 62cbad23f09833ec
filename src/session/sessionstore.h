// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "folderlock.h"
#include "pictureshelf.h"
#include "sessionindex.h"

#include <QString>

#include <atomic>

/// What was found of the session before this one.
struct LastSession {
    int recordings = 0; ///< 0: there is none that could be gone on with
    int clips = 0;
    IndexState state = IndexState::Good;
    QString putAside;      ///< the path that a session has now which cannot be read; empty: none
    QString failure;       ///< why it could not be put aside, for a person; empty: it could
    bool isOthers = false; ///< another program keeps the session: it is neither read nor replaced
};

/// The session in its folder: an index, and pictures beside it. Belongs to the one program that has
/// found it first; reads and writes files, and is no business of the GUI thread.
class SessionStore {
public:
    /// `folder` and the folders above it are made when they are needed.
    explicit SessionStore(const QString& folder);

    /// Looks for the last session. One that is damaged or of another version is put aside with its
    /// pictures: it is renamed, and never removed.
    LastSession look();

    /// All of the session that was found. A clip whose picture is missing or damaged has none, a
    /// job whose mask is has been taken from what waits, since it would search elsewhere.
    SavedSession read();

    /// Writes the session in the place of the one before it; pictures that are there already stay.
    /// Answers why that could not be done, for a person; empty after a success, where nothing has
    /// changed, and where the session belongs to another program.
    QString save(const SavedSession& session);

    /// What is being read or written is wanted no more: both end soon, and nothing is changed. May
    /// be called on any thread.
    void giveUp() { isGivenUp = true; }

private:
    QString takeHold();
    SessionIndex indexOf(const SavedSession& session);
    QString putPictures(const SessionIndex& index);
    QString write(const SessionIndex& index);
    void putAside(LastSession& found);
    QString indexPath() const { return folder + QStringLiteral("/index"); }

    QString folder;
    FolderLock lock;
    std::atomic<bool> isGivenUp{false};
    bool isOthers = false;
    QString whyNotKept; ///< the last session stays where it is; empty: it may be replaced
    SessionIndex last;
    PictureShelf pictures;
    QByteArray written; ///< the index as it is on the disk; empty: not known
};
