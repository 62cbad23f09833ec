// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QList>
#include <QListWidgetItem>
#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QString>

class Video;

/// One detected stretch of motion: an item of the clip list, and its export.
///
/// The list owns its clips; deleting one through either base is enough. GUI thread only. Exports of
/// all clips share one queue and one flag, so that a single encoder runs in the normal course:
/// every end of a run starts the queue's first clip. A crash ends a run twice, and so starts that
/// clip twice; but each clip has one encoder at the most, and its newest run is the one that
/// counts.
///
/// Why an export went wrong is the item's tool tip, and told through ExportNotices.
class Clip : public QObject, public QListWidgetItem {
    Q_OBJECT

public:
    /// The values of `status`.
    enum Status {
        NotExported = 0,
        Exporting = 1,
        Queued = 2,
        Canceled = 3,
        ExportFailed = 4,
        Exported = 5
    };

    /// `video` is the job that found it, `index` its number within that job, from 0. Times in
    /// seconds from the video's first frame. Asks for its export if the job exports by itself.
    Clip(Video* video, int index, const QImage& snapshot, double start, double end,
         double snapshotTime);

    /// What has become of a clip's export.
    struct ExportState {
        int status = NotExported;
        QString outputPath;
        QString note; ///< the tool tip: why it went wrong
    };

    /// A clip that was listed before, with what had become of it; asks for no export.
    Clip(Video* video, int index, const QImage& snapshot, double start, double end,
         double snapshotTime, const ExportState& state);

    /// Leaves the export queue and lets it go on. An encoder that runs for this clip runs to its
    /// end.
    ~Clip() override;

    /// Takes `clips` out of the export queue, all of them before any is deleted: what a deletion
    /// starts is then a clip that stays.
    static void leaveQueue(const QList<Clip*>& clips);

    /// What the list shows for a status, in English; "unknown status" for a value that is none.
    static const char* statusText(int status);

    /// Makes the item's two lines anew.
    void updateText();

    /// The second of the day at which the clip starts: wall-clock time if the job knows it, else
    /// counted from the start of the video.
    int timeOfDay() const;

    /// Exports now if no encoder runs, else when its turn comes; `first`: before all others.
    ///
    /// Asking again queues it again, also while it is being exported or when it has been. Fails at
    /// once where the clip's times cannot be cut.
    void exportClip(bool first);

    /// Whether an encoder runs for it, whatever its status: one that was asked for again meanwhile,
    /// as all are that are exported automatically, reads "queued...".
    bool isBeingExported() const;

    /// Whether its status is that of a clip whose file exists or is about to.
    bool isExportedOrWill() const;

    /// Opens the exported file with the desktop; exports first where there is none yet. Does
    /// nothing where the export has failed.
    void openClip();

    /// The number of entries that wait, with the one under export if it came from the queue.
    static int exportQueueLength();

    int status = NotExported;
    QPointer<Video> video; ///< null once the job is gone: the clip is then not exported any more
    int index;
    double start;              ///< seconds
    double end;                ///< seconds
    double snapshotTime;       ///< seconds
    bool openWhenDone = false; ///< open the file as soon as its export has succeeded
    QImage snapshot;
    QString outputPath;     ///< of the exported file; empty until the first export starts
    float strength = -1.0F; ///< motion value of the snapshot's picture; -1: not known

private Q_SLOTS:
    void processError(QProcess::ProcessError error);
    void processFinished(int exitCode);

private:
    void startEncoder();
    void explain(const QString& reason);

    static QList<Clip*> exportQueue;
    static bool exportRunning;
    static bool isStarting; ///< a start is under way, and may fail on the spot
    static bool isNextDue;  ///< it has failed: the queue's first clip is next
};
