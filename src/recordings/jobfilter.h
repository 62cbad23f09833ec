// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCollator>
#include <QSortFilterProxyModel>

/// The rows of a `JobModel` that are to be seen, in the order in which they are.
class JobFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    enum Shown { All, WithClips, Without, Unreadable };

    explicit JobFilter(QObject* parent = nullptr);

public Q_SLOTS:
    /// Those alone whose name or folder holds `text`, in whatever case.
    void setText(const QString& text);

    void setShown(int shown); ///< a `Shown`

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    bool isShown(int row) const;

    QString wanted;
    Shown shown = All;
    QCollator collator; ///< puts camera 2 before camera 10
};
