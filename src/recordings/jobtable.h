// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTableView>

/// The rows of the recordings. A click on a column's head sorts by it, the next one the other way
/// round, and the third gives back the order in which they came.
///
/// Return goes to the clips of the row, and Delete does nothing: the window's own Return and Delete
/// are meant for the clips that are chosen there.
class JobTable : public QTableView {
    Q_OBJECT

public:
    explicit JobTable(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    /// -1: in the order in which they came.
    void sortBy(int column, Qt::SortOrder order);
    int sortedColumn() const { return sorted; }

Q_SIGNALS:
    void entered(); ///< its clips are wanted, by Return or a double-click
    void menuAsked(const QPoint& globalPosition);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QSize sizeHint() const override;

private Q_SLOTS:
    void sortNext(int column);

private:
    QString whyEmpty() const;
    void setWidths();

    int sorted = -1;
    Qt::SortOrder order = Qt::AscendingOrder;
};
