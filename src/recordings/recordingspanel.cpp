// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingspanel.h"

#include "jobfilter.h"
#include "jobmodel.h"
#include "jobtable.h"
#include "settingstable.h"

#include <QActionGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace {

QAction* addChoice(QActionGroup& group, QMenu& menu, const QString& text, int value,
                   bool isChosen) {
    QAction* action = menu.addAction(text);
    action->setCheckable(true);
    action->setChecked(isChosen);
    action->setData(value);
    group.addAction(action);
    return action;
}

} // namespace

RecordingsPanel::RecordingsPanel(QWidget* parent)
    : QWidget(parent)
    , filterLine(new QLineEdit(this))
    , shown(new QComboBox(this))
    , menuButton(new QToolButton(this))
    , rows(new JobTable(this))
    , totalsLabel(new QLabel(this))
    , rest(new QPushButton(tr("&Search the rest"), this))
    , report(new QPushButton(tr("Save re&port..."), this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    addFilterLine();
    rows->setObjectName(QStringLiteral("recordings"));
    rows->setAccessibleName(tr("Recordings"));
    layout->addWidget(rows, 1);
    totalsLabel->setObjectName(QStringLiteral("labelRecordings"));
    totalsLabel->setTextFormat(Qt::PlainText);
    totalsLabel->setWordWrap(true);
    layout->addWidget(totalsLabel);
    addButtons();
    setFocusProxy(rows);
}

void RecordingsPanel::setModel(JobFilter* filter) {
    rows->setModel(filter);
    connect(filterLine, SIGNAL(textChanged(QString)), filter, SLOT(setText(QString)));
    connect(shown, SIGNAL(currentIndexChanged(int)), filter, SLOT(setShown(int)));
}

void RecordingsPanel::showTotals(const JobTotals& totals) {
    totalsLabel->setText(totals.text());
    rest->setVisible(totals.cancelled > 0);
    report->setEnabled(totals.all > totals.unfinished);
}

/// The window's own Return and Escape open clips and cancel all: not while a filter is typed.
bool RecordingsPanel::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (watched != filterLine || !isKey)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent&>(*event).key();
    const bool isClearing = key == Qt::Key_Escape && !filterLine->text().isEmpty();
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isClearing && !isReturn)
        return QWidget::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::KeyPress && isClearing)
        filterLine->clear();
    if (event->type() == QEvent::KeyPress && isReturn)
        rows->setFocus();
    return true;
}

/// Made anew each time it is opened, so that it shows what holds.
void RecordingsPanel::fillMenu() {
    QMenu& menu = *menuButton->menu();
    menu.clear();
    addSorting(*menu.addMenu(tr("Sort by")));
    addKeeping(*menu.addMenu(tr("Keep measured values")));
    addLikeliestFirst(menu);
}

void RecordingsPanel::sortByAction() {
    if (const auto* action = qobject_cast<QAction*>(sender()))
        rows->sortBy(action->data().toInt(), Qt::AscendingOrder);
}

void RecordingsPanel::keepByAction() {
    QSettings store;
    if (const auto* action = qobject_cast<QAction*>(sender()))
        settings::keptValues.write(store, action->data().toInt());
}

void RecordingsPanel::chooseLikeliestFirst(bool isOn) {
    QSettings store;
    settings::likeliestFirst.write(store, isOn);
    Q_EMIT likeliestFirstAsked(isOn);
}

void RecordingsPanel::addFilterLine() {
    filterLine->setObjectName(QStringLiteral("lineEditFilter"));
    filterLine->setPlaceholderText(tr("Filter"));
    filterLine->setAccessibleName(tr("Filter recordings by name"));
    filterLine->setClearButtonEnabled(true);
    filterLine->setMinimumWidth(40);
    filterLine->installEventFilter(this);
    shown->setObjectName(QStringLiteral("comboBoxShown"));
    shown->addItems({tr("All"), tr("With clips"), tr("Without"), tr("Unreadable")});
    shown->setAccessibleName(tr("Which recordings are shown"));
    shown->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    menuButton->setObjectName(QStringLiteral("toolButtonMenu"));
    menuButton->setText(QStringLiteral("☰"));
    menuButton->setToolTip(tr("Order, and measured values"));
    menuButton->setAccessibleName(menuButton->toolTip());
    menuButton->setPopupMode(QToolButton::InstantPopup);
    menuButton->setFocusPolicy(Qt::StrongFocus);
    menuButton->setMenu(new QMenu(menuButton));
    connect(menuButton->menu(), SIGNAL(aboutToShow()), SLOT(fillMenu()));
    auto* line = new QHBoxLayout;
    line->addWidget(filterLine, 1);
    line->addWidget(shown);
    line->addWidget(menuButton);
    static_cast<QVBoxLayout*>(layout())->addLayout(line);
}

void RecordingsPanel::addButtons() {
    rest->setObjectName(QStringLiteral("pushButtonRest"));
    rest->setToolTip(tr("Searches the recordings that were cancelled"));
    report->setObjectName(QStringLiteral("pushButtonReport"));
    report->setToolTip(tr("Writes a page that shows what is listed, for a browser"));
    connect(rest, SIGNAL(clicked()), SIGNAL(restAsked()));
    connect(report, SIGNAL(clicked()), SIGNAL(reportAsked()));
    auto* line = new QHBoxLayout;
    line->addStretch(1);
    line->addWidget(rest);
    line->addWidget(report);
    static_cast<QVBoxLayout*>(layout())->addLayout(line);
}

void RecordingsPanel::addSorting(QMenu& menu) {
    auto* group = new QActionGroup(&menu);
    addChoice(*group, menu, tr("As they came"), -1, rows->sortedColumn() < 0);
    for (int column = 0; column < JobModel::ColumnCount; ++column)
        addChoice(*group, menu,
                  rows->model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                  column, rows->sortedColumn() == column);
    for (QAction* action : group->actions())
        connect(action, SIGNAL(triggered()), SLOT(sortByAction()));
}

void RecordingsPanel::addKeeping(QMenu& menu) {
    auto* group = new QActionGroup(&menu);
    const int kept = settings::keptValues.read(QSettings());
    addChoice(*group, menu, tr("Off"), 0, kept <= 0);
    for (const int megabytes : {250, 1000, 4000})
        addChoice(*group, menu,
                  megabytes < 1000 ? tr("%1 MB").arg(megabytes) : tr("%1 GB").arg(megabytes / 1000),
                  megabytes, kept == megabytes);
    for (QAction* action : group->actions())
        connect(action, SIGNAL(triggered()), SLOT(keepByAction()));
}

void RecordingsPanel::addLikeliestFirst(QMenu& menu) {
    QAction* action = menu.addAction(tr("Search the likeliest first"));
    action->setObjectName(QStringLiteral("actionLikeliestFirst"));
    action->setToolTip(tr("Of the recordings that wait, the one is searched next whose packet "
                          "sizes promise motion most; the rows stay in their order"));
    action->setCheckable(true);
    action->setChecked(settings::likeliestFirst.read(QSettings()));
    connect(action, SIGNAL(toggled(bool)), SLOT(chooseLikeliestFirst(bool)));
    menu.setToolTipsVisible(true);
}
