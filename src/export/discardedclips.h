// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QBasicTimer>
#include <QList>
#include <QObject>

class Clip;

/// Clips that nobody will see again. They end when no export runs or waits: the end of a clip
/// starts the next export, and a second encoder would run beside the first.
class DiscardedClips : public QObject {
public:
    DiscardedClips() = default;
    ~DiscardedClips() override;

    /// Owns them from now on; they are in no list. What waits of them is not exported any more;
    /// what is being exported is so to its end.
    void add(const QList<Clip*>& clips);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    QList<Clip*> discarded;
    QBasicTimer timer; ///< runs while there are some
};
