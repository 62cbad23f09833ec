// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QList>
#include <QListWidget>
#include <QObject>
#include <QPointer>
#include <QString>

class Clip;
class DetectionQueue;

/// Clips that overlap or touch, of one recording, group by group in the order of their starts. A
/// clip that does neither is a group of its own.
QList<QList<Clip*>> overlappingGroups(QList<Clip*> clips);

/// Exports clips that overlap as one file: from where the first of them starts to where the last
/// one ends, with a number that no other clip in that folder has. The listed clips show what
/// becomes of it as if it were their own export, and are marked as joined (CaptionDelegate). Goes
/// through the export queue as every clip.
class JoinedExport : public QObject {
    Q_OBJECT

public:
    /// `queue` must outlive it.
    explicit JoinedExport(const DetectionQueue& queue);
    ~JoinedExport() override;

    /// Clips that overlap no other one are exported as they are. Answers why some are not
    /// exported, for a person; empty: all are.
    QString exportJoined(const QList<Clip*>& clips);

private Q_SLOTS:
    void follow(QListWidgetItem* item);

private:
    using Parts = QList<QPointer<Clip>>;

    bool exportGroup(const QList<Clip*>& group);
    void begin(Clip& joined, const QList<Clip*>& group);

    const DetectionQueue& queue;
    QListWidget joinedClips;                ///< never shown; tells when a clip of its own changes
    QHash<QListWidgetItem*, Parts> partsOf; ///< that show what becomes of the joined clip
};
