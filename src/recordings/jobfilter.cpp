// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobfilter.h"

#include "jobmodel.h"
#include "video.h"

JobFilter::JobFilter(QObject* parent)
    : QSortFilterProxyModel(parent) {
    setSortRole(JobModel::SortRole);
    // Without a language there are no numbers in names.
    if (QLocale().language() == QLocale::C)
        collator.setLocale(QLocale::English);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
}

void JobFilter::setText(const QString& text) {
    wanted = text.trimmed();
    invalidateFilter();
}

void JobFilter::setShown(int index) {
    shown = Shown(index);
    invalidateFilter();
}

bool JobFilter::filterAcceptsRow(int row, const QModelIndex&) const {
    const auto& model = static_cast<const JobModel&>(*sourceModel());
    return !model.job(row)->isSuperseded && isShown(row) &&
           (wanted.isEmpty() || model.job(row)->fileName.contains(wanted, Qt::CaseInsensitive));
}

bool JobFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    if (left.column() != JobModel::Name)
        return QSortFilterProxyModel::lessThan(left, right);
    return collator.compare(left.data(sortRole()).toString(), right.data(sortRole()).toString()) <
           0;
}

bool JobFilter::isShown(int row) const {
    const JobStatus& status = static_cast<const JobModel&>(*sourceModel()).status(row);
    switch (shown) {
    case WithClips:
        return status.clips > 0;
    case Without:
        return status.kind == JobStatus::Found || status.kind == JobStatus::NoMotion;
    case Unreadable:
        return status.kind == JobStatus::Unreadable;
    default:
        return true;
    }
}
