// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "areabar.h"

#include "markedbutton.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

AreaBar::AreaBar(QWidget* parent)
    : QWidget(parent)
    , draw(addButton("buttonArea", tr("Area"), true))
    , freeShape(addButton("buttonFreeShape", tr("Free shape"), true))
    , clear(addButton("buttonClearArea", tr("Clear"), false))
    , allOfCamera(new QCheckBox(tr("All of this camera"), this))
    , label(new QLabel(this)) {
    setObjectName(QStringLiteral("areaBar"));
    draw->setToolTip(tr("Draw a part of the picture: only clips with motion there are listed"));
    freeShape->setToolTip(tr("Draw a free shape instead of a rectangle"));
    allOfCamera->setObjectName(QStringLiteral("checkBoxAllOfCamera"));
    allOfCamera->setToolTip(tr("For all recordings whose pictures have the same size"));
    label->setObjectName(QStringLiteral("labelArea"));
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(draw, 0, 0);
    layout->addWidget(freeShape, 0, 1);
    layout->addWidget(clear, 0, 2);
    layout->addWidget(allOfCamera, 1, 0, 1, 3);
    layout->addWidget(label, 1, 3);
    layout->setColumnStretch(3, 1);
    connect(draw, SIGNAL(toggled(bool)), SIGNAL(drawingAsked(bool)));
    connect(freeShape, SIGNAL(toggled(bool)), SIGNAL(freeShapeAsked(bool)));
    connect(allOfCamera, SIGNAL(toggled(bool)), SIGNAL(allOfCameraAsked(bool)));
    connect(clear, SIGNAL(clicked()), SIGNAL(clearAsked()));
}

void AreaBar::setText(const QString& text) {
    label->setText(text);
    label->setToolTip(text); // it may be cut off
}

void AreaBar::setDrawing(bool isDrawing) {
    draw->setChecked(isDrawing);
}

void AreaBar::setClearable(bool isClearable) {
    clear->setEnabled(isClearable);
}

bool AreaBar::isForAllOfCamera() const {
    return allOfCamera->isChecked();
}

QToolButton* AreaBar::addButton(const char* name, const QString& text, bool isCheckable) {
    auto* button = new MarkedButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setCheckable(isCheckable);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}
