// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QBasicTimer>
#include <QList>
#include <QObject>

class Clip;
class QListWidget;

/// Clips that nobody will see again. They end when no export runs or waits: the end of a clip
/// starts the next export, and a second encoder would run beside the first.
class DiscardedClips : public QObject {
public:
    /// `list` must outlive it.
    explicit DiscardedClips(QListWidget& list);
    ~DiscardedClips() override;

    /// Owns them from now on; they are in no list.
    void add(const QList<Clip*>& clips);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool isExportIdle() const;

    QListWidget& list;
    QList<Clip*> discarded;
    QBasicTimer timer; ///< runs while there are some
};
