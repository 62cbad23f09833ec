// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingsdock.h"

#include "detectionqueue.h"
#include "jobfilter.h"
#include "jobmodel.h"
#include "jobtable.h"
#include "recordingmenu.h"
#include "recordingspanel.h"
#include "recordingswatch.h"
#include "searchagaindialog.h"
#include "video.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

constexpr int refreshMilliseconds = 500;

} // namespace

RecordingsDock::RecordingsDock(DetectionQueue& queue, QWidget* parent)
    : QDockWidget(tr("Recordings"), parent)
    , queue(queue)
    , model(new JobModel(queue, this))
    , filter(new JobFilter(this))
    , panel(new RecordingsPanel(this))
    , table(panel->table())
    , watch(new RecordingsWatch(queue, this)) {
    setObjectName(QStringLiteral("dockRecordings"));
    setWidget(panel);
    filter->setSourceModel(model);
    // Before the table hears of it, which chooses another row then.
    connect(filter, SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)), SLOT(holdChoice()));
    panel->setModel(filter);
    connect(filter, SIGNAL(rowsRemoved(QModelIndex, int, int)), SLOT(showCurrent()));
    connect(filter, SIGNAL(rowsInserted(QModelIndex, int, int)), SLOT(showCurrent()));
    timer.setInterval(refreshMilliseconds);
    connect(&timer, SIGNAL(timeout()), SLOT(refresh()));
    connect(model, SIGNAL(changed()), SLOT(showTotals()));
    connect(panel, SIGNAL(restAsked()), SIGNAL(restAsked()));
    connect(panel, SIGNAL(reportAsked()), SIGNAL(reportAsked()));
    connect(panel, SIGNAL(likeliestFirstAsked(bool)), SIGNAL(likeliestFirstAsked(bool)));
    connect(table, SIGNAL(entered()), SLOT(enter()));
    connect(table, SIGNAL(menuAsked(QPoint)), SLOT(showMenu(QPoint)));
    connect(table->selectionModel(), SIGNAL(currentRowChanged(QModelIndex, QModelIndex)),
            SLOT(takeCurrent()));
    connect(watch, SIGNAL(found(Video*, FilePresence)), SLOT(takePresence(Video*, FilePresence)));
    showTotals();
}

QString RecordingsDock::summary() const {
    const JobTotals totals = model->totals();
    if (totals.all == 0)
        return tr("Recordings");
    if (totals.unreadable == 0)
        return tr("Recordings: %1").arg(totals.all);
    return tr("Recordings: %1, %2 unreadable").arg(totals.all).arg(totals.unreadable);
}

void RecordingsDock::setClipCounts(const QHash<const Video*, int>& counts) {
    model->setClipCounts(counts);
}

void RecordingsDock::choose(Video* job) {
    if (job == current)
        return;
    current = job;
    showCurrent();
    watch->check(job);
    Q_EMIT chosen(job);
}

void RecordingsDock::lookAt(Video* job) {
    watch->check(job);
}

void RecordingsDock::showEvent(QShowEvent* event) {
    QDockWidget::showEvent(event);
    watch->setWanted(true);
    refresh();
}

void RecordingsDock::hideEvent(QHideEvent* event) {
    QDockWidget::hideEvent(event);
    watch->setWanted(false);
    timer.stop();
}

void RecordingsDock::holdChoice() {
    isShowing = true;
}

void RecordingsDock::takeCurrent() {
    const QModelIndex index = table->currentIndex();
    if (!isShowing && index.isValid())
        choose(model->job(filter->mapToSource(index).row()));
}

void RecordingsDock::enter() {
    if (current)
        Q_EMIT entered(current);
}

void RecordingsDock::showMenu(const QPoint& globalPosition) {
    if (!current)
        return;
    auto* menu = new RecordingMenu(model->status(model->row(current)), current == alone, this);
    menu->setObjectName(QStringLiteral("menuRecording"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu, SIGNAL(searchAgainAsked()), SLOT(searchAgain()));
    connect(menu, SIGNAL(cancelAsked()), SLOT(cancelThis()));
    connect(menu, SIGNAL(folderAsked()), SLOT(askForFolder()));
    connect(menu, SIGNAL(nameAsked()), SLOT(copyName()));
    connect(menu, SIGNAL(onlyThisAsked(bool)), SLOT(askForOnlyThis(bool)));
    connect(menu, SIGNAL(removalAsked()), SLOT(askForRemoval()));
    menu->popup(globalPosition);
}

void RecordingsDock::searchAgain() {
    SearchAgainDialog dialog(*current, this);
    if (dialog.exec() == QDialog::Accepted)
        Q_EMIT searchAsked(new Video(dialog.record()));
}

void RecordingsDock::cancelThis() {
    queue.cancel(*current);
    model->refresh();
}

void RecordingsDock::askForFolder() {
    Q_EMIT folderAsked(current);
}

void RecordingsDock::copyName() {
    QGuiApplication::clipboard()->setText(current->shortFileName());
}

void RecordingsDock::askForOnlyThis(bool isAlone) {
    Q_EMIT onlyThisAsked(isAlone ? current : nullptr);
}

void RecordingsDock::askForRemoval() {
    Q_EMIT clipsRemovalAsked(current);
}

void RecordingsDock::showTotals() {
    panel->showTotals(model->totals());
    showCurrent();
    Q_EMIT summaryChanged(summary());
    if (isVisible() && queue.isActive() && !timer.isActive())
        timer.start();
}

void RecordingsDock::refresh() {
    model->refresh();
    if (isVisible() && queue.isActive())
        timer.start();
    else
        timer.stop();
}

void RecordingsDock::takePresence(Video* job, FilePresence presence) {
    model->setPresence(job, presence);
}

/// Where the row is seen; sorting and filtering may have moved it.
void RecordingsDock::showCurrent() {
    const int row = current ? model->row(current) : -1;
    const QModelIndex index =
        row < 0 ? QModelIndex() : filter->mapFromSource(model->index(row, JobModel::Name));
    isShowing = true;
    if (index.isValid() && index.row() != table->currentIndex().row())
        table->setCurrentIndex(index);
    else if (!index.isValid())
        table->selectionModel()->clear();
    isShowing = false;
}
