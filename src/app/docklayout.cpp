// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "docklayout.h"

#include "settingstable.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>

namespace {

constexpr int saveMilliseconds = 1000;
constexpr int layoutVersion = 1; // another one where docks have other names

} // namespace

DockLayout::DockLayout(QMainWindow& window)
    : window(window) {
    timer.setSingleShot(true);
    timer.setInterval(saveMilliseconds);
    connect(&timer, SIGNAL(timeout()), SLOT(save()));
}

/// The sizes of docks change without a signal.
DockLayout::~DockLayout() {
    const QList<QDockWidget*> docks = window.findChildren<QDockWidget*>();
    for (const QDockWidget* dock : docks)
        isChanged = isChanged || !dock->isHidden();
    save();
}

void DockLayout::restore() {
    const QByteArray stored =
        QSettings().value(QLatin1String(settings::windowStateKey)).toByteArray();
    isFirst = !window.restoreState(stored, layoutVersion);
    const QList<QDockWidget*> docks = window.findChildren<QDockWidget*>();
    for (QDockWidget* dock : docks) {
        connect(dock->toggleViewAction(), SIGNAL(toggled(bool)), SLOT(noteChange()));
        connect(dock->toggleViewAction(), SIGNAL(triggered(bool)), SLOT(shareHeight()));
        connect(dock, SIGNAL(dockLocationChanged(Qt::DockWidgetArea)), SLOT(noteChange()));
        connect(dock, SIGNAL(topLevelChanged(bool)), SLOT(noteChange()));
    }
}

void DockLayout::noteChange() {
    isChanged = true;
    timer.start();
}

/// The library would give all of them the same.
void DockLayout::shareHeight() {
    QList<QDockWidget*> shown;
    QList<int> heights;
    const QList<QDockWidget*> docks = window.findChildren<QDockWidget*>();
    for (QDockWidget* dock : docks) {
        if (dock->isHidden() || window.dockWidgetArea(dock) != Qt::RightDockWidgetArea)
            continue;
        shown.append(dock);
        heights.append(dock->sizeHint().height());
    }
    if (isFirst)
        window.resizeDocks(shown, heights, Qt::Vertical);
}

void DockLayout::save() {
    if (isChanged)
        QSettings().setValue(QLatin1String(settings::windowStateKey),
                             window.saveState(layoutVersion));
    isChanged = false;
}
