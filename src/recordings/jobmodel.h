// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobstatus.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>
#include <QVector>

class DetectionQueue;
class Video;

/// The jobs of a queue, a row each, in their order. Tells of those rows alone that are others than
/// before.
class JobModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Name, State, Clips, Length, Strongest, Start, ColumnCount };

    /// The value by which a column is sorted: no text where that is a number or a time.
    static constexpr int SortRole = Qt::UserRole;

    /// `queue` must outlive it.
    explicit JobModel(DetectionQueue& queue, QObject* parent = nullptr);

    Video* job(int row) const { return jobs[row]; }
    int row(const Video* job) const { return rows.value(job, -1); } ///< -1: there is none
    const JobStatus& status(int row) const { return statuses[row]; }
    JobTotals totals() const;

    /// How many clips are listed of each job; those that are missing have none.
    void setClipCounts(const QHash<const Video*, int>& counts);

    void setPresence(const Video* job, FilePresence presence);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

public Q_SLOTS:
    /// Looks at what jobs do not tell: how far they are, and which was cancelled.
    void refresh();

Q_SIGNALS:
    void changed(); ///< a row has come or says something else

private Q_SLOTS:
    void takeJobs(const QList<Video*>& added);
    void takeFacts();

private:
    bool update(int row);
    JobStatus statusNow(const Video* job) const;
    QString text(int row, Column column) const;
    QVariant sortValue(int row, Column column) const;

    QList<Video*> jobs;
    QVector<JobStatus> statuses;
    QHash<const Video*, int> rows;
    QHash<const QObject*, int> newsRows; ///< by what they tell through
    QHash<const Video*, int> clipCounts;
    QHash<const Video*, FilePresence> presences;
    QHash<QString, int> lastSearches; ///< by clip folder: the last row that was read to its end
};
