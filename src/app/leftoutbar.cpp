// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "leftoutbar.h"

#include "editmaskwindow.h"
#include "leftoutfiles.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace {

constexpr int namedFiles = 3;

} // namespace

LeftOutBar::LeftOutBar(EditMaskWindow& setup, QWidget* parent)
    : QWidget(parent)
    , setup(setup)
    , label(new QLabel(this)) {
    setObjectName(QStringLiteral("leftOutBar"));
    label->setObjectName(QStringLiteral("labelLeftOut"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* add = new QPushButton(tr("Set them up"), this);
    add->setObjectName(QStringLiteral("pushButtonSetUp"));
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("toolButtonForget"));
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setToolTip(tr("Leave them out"));
    close->setAccessibleName(close->toolTip());
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label, 1);
    layout->addWidget(add);
    layout->addWidget(close);
    connect(add, SIGNAL(clicked()), SLOT(addAll()));
    connect(close, SIGNAL(clicked()), SLOT(forget()));
    connect(&setup.leftOut(), SIGNAL(changed()), SLOT(showFiles()));
    showFiles();
}

void LeftOutBar::showFiles() {
    label->setText(summary());
    setVisible(!setup.leftOut().all().isEmpty());
}

void LeftOutBar::addAll() {
    setup.queueFiles(setup.leftOut().take());
}

void LeftOutBar::forget() {
    setup.leftOut().take();
}

QString LeftOutBar::summary() const {
    const QStringList& files = setup.leftOut().all();
    QStringList names;
    for (const QString& file : files.mid(0, namedFiles))
        names.append(QFileInfo(file).fileName());
    const QString named = names.join(QStringLiteral(", "));
    const int others = files.size() - names.size();
    // All at once: a file name may hold a "%2" of its own.
    return others > 0 ? tr("Not set up, since others were added: %1 and %2 more")
                            .arg(named, QString::number(others))
                      : tr("Not set up, since others were added: %1").arg(named);
}
