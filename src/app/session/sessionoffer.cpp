// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sessionoffer.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

SessionOffer::SessionOffer(QWidget* parent)
    : QWidget(parent)
    , button(new QPushButton(this)) {
    setObjectName(QStringLiteral("sessionOffer"));
    button->setObjectName(QStringLiteral("pushButtonGoOn"));
    button->setAutoDefault(true);
    button->setMinimumWidth(1); // a long text is cut off where the window is narrow
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("toolButtonDoWithout"));
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setToolTip(tr("Do without it"));
    close->setAccessibleName(close->toolTip());
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(button, 1);
    layout->addWidget(close);
    connect(button, SIGNAL(clicked()), SIGNAL(taken()));
    connect(close, SIGNAL(clicked()), SLOT(hide()));
    hide();
}

void SessionOffer::offer(int recordings, int clips) {
    button->setText(
        tr("Go on with the last session: %1, %2")
            .arg(tr("%n recordings", nullptr, recordings), tr("%n clips", nullptr, clips)));
    button->setEnabled(true);
    show();
    button->setFocus();
}

void SessionOffer::showReading() {
    button->setText(tr("Reading the last session..."));
    button->setEnabled(false);
}
