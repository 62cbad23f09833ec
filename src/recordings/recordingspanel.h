// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobstatus.h"

#include <QWidget>

class JobFilter;
class JobTable;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QToolButton;

/// The controls of the recordings' dock, from the filter line to the buttons below the table.
class RecordingsPanel : public QWidget {
    Q_OBJECT

public:
    explicit RecordingsPanel(QWidget* parent = nullptr);

    JobTable* table() const { return rows; }

    void setModel(JobFilter* filter);
    void showTotals(const JobTotals& totals);

Q_SIGNALS:
    void restAsked();
    void reportAsked();
    void likeliestFirstAsked(bool isOn);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void fillMenu();
    void sortByAction();
    void keepByAction();
    void chooseLikeliestFirst(bool isOn);

private:
    void addFilterLine();
    void addButtons();
    void addSorting(QMenu& menu);
    void addKeeping(QMenu& menu);
    void addLikeliestFirst(QMenu& menu);

    QLineEdit* filterLine;
    QComboBox* shown;
    QToolButton* menuButton;
    JobTable* rows;
    QLabel* totalsLabel;
    QPushButton* rest;
    QPushButton* report;
};
