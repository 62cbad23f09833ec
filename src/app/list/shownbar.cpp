// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "shownbar.h"

#include "cliplistwidget.h"
#include "listfilter.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int countMilliseconds = 200;

} // namespace

ShownBar::ShownBar(ListFilter& filter, ClipListWidget& list, QWidget* parent)
    : QWidget(parent)
    , filter(filter)
    , list(list)
    , label(new QLabel(this)) {
    setObjectName(QStringLiteral("barShown"));
    label->setObjectName(QStringLiteral("labelShown"));
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* all = new QPushButton(tr("Show all clips"), this);
    all->setObjectName(QStringLiteral("pushButtonShowAll"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label, 1);
    layout->addWidget(all);
    timer.setSingleShot(true);
    timer.setInterval(countMilliseconds);
    connect(&timer, SIGNAL(timeout()), SLOT(showCount()));
    connect(all, SIGNAL(clicked()), SLOT(showAll()));
    connect(&filter, SIGNAL(changed()), SLOT(showCount()));
    connect(list.model(), SIGNAL(rowsInserted(QModelIndex, int, int)), SLOT(countLater()));
    connect(list.model(), SIGNAL(rowsRemoved(QModelIndex, int, int)), SLOT(countLater()));
    showCount();
}

void ShownBar::showCount() {
    setVisible(filter.isActive());
    if (!filter.isActive())
        return;
    int shown = 0;
    for (int row = 0; row < list.count(); ++row)
        shown += list.isRowHidden(row) ? 0 : 1;
    label->setText(tr("%1 of %n clips are listed", nullptr, list.count()).arg(shown));
}

void ShownBar::countLater() {
    if (filter.isActive())
        timer.start();
}

void ShownBar::showAll() {
    filter.clear();
}
