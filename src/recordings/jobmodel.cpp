// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobmodel.h"

#include "clocktext.h"
#include "detectionqueue.h"
#include "video.h"

#include <QBrush>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QPalette>

namespace {

constexpr int strengthDigits = 2;

/// Whether the clock was set when the recording was made, as far as anybody has said so.
bool isStartKnown(const Video& job) {
    return job.exportTimestamps && job.startDateTime.isValid();
}

QString strongestText(const Video& job) {
    const JobFacts& facts = job.news.facts();
    if (facts.seconds <= 0.0)
        return {};
    return QLocale().toString(double(facts.strongest.value), 'f', strengthDigits);
}

bool isNumber(int column) {
    return column == JobModel::Clips || column == JobModel::Length || column == JobModel::Strongest;
}

QString folderOf(const Video& job) {
    return QDir::toNativeSeparators(QFileInfo(job.fileName).absolutePath());
}

} // namespace

JobModel::JobModel(DetectionQueue& queue, QObject* parent)
    : QAbstractTableModel(parent) {
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(takeJobs(QList<Video*>)));
    takeJobs(queue.jobs());
}

JobTotals JobModel::totals() const {
    JobTotals totals;
    for (const JobStatus& status : statuses)
        totals.add(status);
    return totals;
}

void JobModel::setClipCounts(const QHash<const Video*, int>& counts) {
    clipCounts = counts;
    refresh();
}

void JobModel::setPresence(const Video* job, FilePresence presence) {
    presences[job] = presence;
    const int row = this->row(job);
    if (row >= 0 && update(row))
        Q_EMIT changed();
}

int JobModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : jobs.size();
}

int JobModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant JobModel::data(const QModelIndex& index, int role) const {
    const auto column = Column(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), column);
    case Qt::ToolTipRole:
        return column == Name ? folderOf(*jobs[index.row()]) : text(index.row(), column);
    case Qt::TextAlignmentRole:
        return int((isNumber(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        if (statuses[index.row()].kind == JobStatus::SearchedAgain)
            return QGuiApplication::palette().brush(QPalette::PlaceholderText);
        return {};
    case SortRole:
        return sortValue(index.row(), column);
    default:
        return {};
    }
}

QVariant JobModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return tr("Recording");
    case State:
        return tr("State");
    case Clips:
        return tr("Clips");
    case Length:
        return tr("Length");
    case Strongest:
        return tr("Strongest");
    case Start:
        return tr("Start");
    default:
        return {};
    }
}

void JobModel::refresh() {
    lastSearches.clear();
    for (int row = 0; row < jobs.size(); ++row) {
        if (jobs[row]->sharesFolder() && jobs[row]->state == Video::Finished)
            lastSearches[jobs[row]->clipDirectory] = row;
    }
    bool isAnyOther = false;
    for (int row = 0; row < jobs.size(); ++row)
        isAnyOther = update(row) || isAnyOther;
    if (isAnyOther)
        Q_EMIT changed();
}

void JobModel::takeJobs(const QList<Video*>& added) {
    if (added.isEmpty())
        return;
    beginInsertRows({}, jobs.size(), jobs.size() + added.size() - 1);
    for (Video* job : added) {
        rows[job] = jobs.size();
        newsRows[&job->news] = jobs.size();
        jobs.append(job);
        statuses.append(statusNow(job));
        connect(&job->news, SIGNAL(factsChanged()), SLOT(takeFacts()));
        connect(job, SIGNAL(resultReady()), SLOT(refresh()));
    }
    endInsertRows();
    Q_EMIT changed();
}

void JobModel::takeFacts() {
    const int row = newsRows.value(sender(), -1);
    if (row < 0)
        return;
    statuses[row] = statusNow(jobs[row]);
    Q_EMIT dataChanged(index(row, Name), index(row, ColumnCount - 1));
    Q_EMIT changed();
}

/// Whether it says something else than before.
bool JobModel::update(int row) {
    const JobStatus now = statusNow(jobs[row]);
    if (now == statuses[row])
        return false;
    statuses[row] = now;
    Q_EMIT dataChanged(index(row, Name), index(row, ColumnCount - 1));
    return true;
}

JobStatus JobModel::statusNow(const Video* job) const {
    const bool isReplaced =
        job->isSuperseded || (job->hasEnded() && lastSearches.value(job->clipDirectory) > row(job));
    return statusOf(*job, clipCounts.value(job), presences.value(job, FilePresence::Same),
                    isReplaced);
}

QString JobModel::text(int row, Column column) const {
    const Video& job = *jobs[row];
    switch (column) {
    case Name:
        return job.shortFileName();
    case State:
        return statusText(statuses[row]);
    case Clips:
        return statuses[row].clips > 0 ? QString::number(statuses[row].clips) : QString();
    case Length:
        return job.news.facts().seconds > 0.0 ? elapsedText(job.news.facts().seconds) : QString();
    case Strongest:
        return strongestText(job);
    case Start:
        return isStartKnown(job) ? QLocale().toString(job.startDateTime, QLocale::ShortFormat)
                                 : QString();
    default:
        return {};
    }
}

QVariant JobModel::sortValue(int row, Column column) const {
    const Video& job = *jobs[row];
    switch (column) {
    case Name:
        return job.shortFileName();
    case State:
        return int(statuses[row].kind);
    case Clips:
        return statuses[row].clips;
    case Length:
        return job.news.facts().seconds;
    case Strongest:
        return double(job.news.facts().strongest.value);
    case Start:
        return isStartKnown(job) ? job.startDateTime : QDateTime();
    default:
        return {};
    }
}
