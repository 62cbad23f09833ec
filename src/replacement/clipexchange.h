// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "searchoptions.h"

#include <QList>
#include <QPointer>

#include <optional>
#include <vector>

class Clip;
class QListWidget;
class DiscardedClips;
class Video;

/// Clips that left the list for others, and can be put back.
class ClipExchange {
public:
    /// Both must outlive it.
    ClipExchange(QListWidget& list, DiscardedClips& discarded);

    /// What left the list is discarded.
    ~ClipExchange();
    ClipExchange(const ClipExchange&) = delete;
    ClipExchange& operator=(const ClipExchange&) = delete;

    /// From now on the recording's clips are those of these options.
    void setOptions(Video& video, const DecidingOptions& options);

    void takeOut(const QList<Clip*>& clips);

    /// A new clip, which the list owns from then on.
    void putIn(Clip& clip, const QList<Video*>& jobs);

    /// Decides as before. The list becomes what it was by `putBackSome`.
    void undo();

    /// Forgets what was done with recordings for which other jobs stand by now: these find anew
    /// what is to be listed.
    void forgetSuperseded();

    /// Goes on for about so long with taking out what is new, but for clips that are exported or
    /// will be, and then with putting back what had left; false when all is done.
    bool putBackSome(const QList<Video*>& jobs, int milliseconds);

    /// Whether there is nothing to be undone.
    bool isEmpty() const { return decidings.empty(); }

    int keptClips() const { return out.size(); }

private:
    struct Before {
        QPointer<Video> video;
        std::optional<DecidingOptions> options;
    };

    void discard(Clip* clip);
    void removeFromList(Clip& clip);

    QListWidget& list;
    DiscardedClips& discarded;
    QList<Clip*> out;              ///< of the list; owned
    QList<QPointer<Clip>> in;      ///< as far as nobody has removed them
    std::vector<Before> decidings; ///< of the recordings
};
