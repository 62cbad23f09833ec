// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipnames.h"
#include "firstframe.h"
#include "jobnews.h"
#include "jobrecord.h"
#include "searchoptions.h"

#include <QDateTime>
#include <QImage>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QRect>
#include <QString>
#include <QVector>

#include <atomic>
#include <memory>

struct DetectionOptions;

/// One video file's detection job: the file, its region of interest and its export options.
///
/// Made on the GUI thread, moved to the worker thread, started there by `detect`. The fields of
/// type `std::atomic` may be read and written by both threads while it runs; the lists are filled
/// just before `resultReady` and belong to the worker until then; all other fields are fixed by the
/// constructor.
class Video : public QObject {
    Q_OBJECT

public:
    /// The values of `state`. From CancelRequested on, every value is an end state.
    enum State { Waiting = 0, Running = 1, CancelRequested = 2, Failed = 3, Finished = 4 };

    /// Margins in seconds, `skip` in frames. A mask or rectangle (coordinates of the mask image) is
    /// copied; both may be null, and a rectangle needs the mask beside it. Makes the job's own clip
    /// folder inside `exportDirectory`; whether that worked shows only when a clip is exported.
    /// Jobs that are made at once for one export directory may share `numbers`.
    Video(const QString& fileName, const QString& exportDirectory, double prerecord,
          double postrecord, double minimum, int skip, bool autoExport, const QImage* mask,
          const QRect* roiRect, bool exportTimestamps, const QDateTime& startDateTime,
          ClipFolderNumbers* numbers = nullptr);

    /// A job of an earlier run, or one that searches its recording once more: with its clip folder
    /// as it was, and waiting unless it has ended. Its clips are numbered on (`numberOn`).
    explicit Video(const JobRecord& record);
    ~Video() override;

    JobRecord record() const;

    /// What its recording is measured and decided with; as the settings are now.
    DetectionOptions detectionOptions() const;

    bool hasEnded() const { return state >= CancelRequested; }

    /// Gives the clips that it is about to find numbers that none has had of those `jobs` that
    /// share its clip folder, so that no file there is replaced. Does nothing to a job that was
    /// given a clip folder of its own.
    void numberOn(const QList<Video*>& jobs);

    /// Whether other jobs may have clips in its clip folder.
    bool sharesFolder() const { return isFolderShared; }

    /// The file's name without its folder.
    QString shortFileName() const;

    QVector<float> motionValues;         ///< one motion value per processed frame
    QVector<double> frameTimes;          ///< the same frames' times, seconds
    QString fileName;                    ///< as passed to the constructor
    QString clipDirectory;               ///< absolute path of the job's own export folder
    std::atomic<int> state{Waiting};     ///< a `State`; the GUI thread writes 2 to cancel
    qint64 fileSize;                     ///< bytes
    std::atomic<qint64> bytesRead{0};    ///< the demuxer's position; -1 when unknown
    double prerecord;                    ///< seconds
    double postrecord;                   ///< seconds
    double minimum;                      ///< seconds
    int skip;                            ///< frames between two measurements
    std::atomic<int> elapsedSeconds{0};  ///< wall-clock seconds since detection started
    bool autoExport;                     ///< export every clip as soon as it is found
    std::unique_ptr<QImage> mask;        ///< own copy, or null
    std::unique_ptr<QRect> roiRect;      ///< own copy, or null
    QMutex mutex;                        ///< the job's own; no operation takes it
    std::atomic<bool> intraCodec{false}; ///< every picture stands alone; known once detection runs
    bool exportTimestamps;               ///< burn the wall-clock time into exported clips
    QDateTime startDateTime;             ///< wall-clock time of the first picture
    SearchOptions search;                ///< fixed before the job is handed over
    MeasuredSpan measuredSpan;           ///< where `frameTimes` begins; filled as the lists are
    JobNews news;                        ///< of the GUI thread
    int firstClipNumber = 0;   ///< of the GUI thread: all clips of its search have this one or more
    bool isSuperseded = false; ///< of the GUI thread: another job stands for it
    int nextClipNumber = 0; ///< of the GUI thread: none of its clips had this one or a higher one

Q_SIGNALS:
    /// A clip was found. Times in seconds from the first picture. Clips are numbered from
    /// `nextClipNumber` on, as it was when the search began.
    void newClip(int index, QImage snapshot, double start, double end, double snapshotTime);

    /// The run is over, whatever its outcome; `state` is no longer 1. Once per `detect`.
    void resultReady();

public Q_SLOTS:
    /// The whole run, on the thread that the job lives on.
    void detect();

private:
    bool isFolderShared = false; ///< clips of other jobs may be in its clip folder
};
