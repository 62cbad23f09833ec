// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "windowdocks.h"

#include "areacontrol.h"
#include "cliplistwidget.h"
#include "clipmenu.h"
#include "detectionqueue.h"
#include "listfilter.h"
#include "measurementcache.h"
#include "motiondock.h"
#include "playerdock.h"
#include "recordingsdock.h"
#include "resumedsearches.h"

#include <QAction>
#include <QMainWindow>
#include <QStatusBar>
#include <QToolButton>

WindowDocks::WindowDocks(QMainWindow& window, DetectionQueue& queue, ClipListWidget& list)
    : QObject(&window)
    , window(window)
    , queue(queue)
    , list(list)
    , filter(new ListFilter(list))
    , resumedSearches(new ResumedSearches(window, queue, list))
    , recordings(new RecordingsDock(queue, &window))
    , motion(new MotionDock(&window))
    , player(new PlayerDock(&window)) {
    filter->setParent(this);
    resumedSearches->setParent(this);
    connect(recordings, SIGNAL(restAsked()), resumedSearches, SLOT(searchRest()));
    add(*recordings, Qt::RightDockWidgetArea, "buttonRecordings", Qt::Key_F7);
    add(*motion, Qt::BottomDockWidgetArea, "buttonMotion", Qt::Key_F8);
    add(*player, Qt::RightDockWidgetArea, "buttonPlayer", Qt::Key_F9);
    area = std::make_unique<AreaControl>(*player, list, *filter, queue);
    clipMenu = std::make_unique<ClipMenu>(window, list, queue, *filter);
    clipMenu->setParent(this);
    connect(clipMenu.get(), SIGNAL(told(QString)), window.statusBar(), SLOT(showMessage(QString)));
    connect(clipMenu.get(), SIGNAL(onlyRecordingAsked(Video*)), recordings,
            SIGNAL(onlyThisAsked(Video*)));
    area->setParent(this);
    connect(recordings, SIGNAL(chosen(Video*)), area.get(), SLOT(setRecording(Video*)));
    window.statusBar()->connect(&MeasurementCache::instance(), SIGNAL(told(QString)),
                                SLOT(showMessage(QString)));
}

WindowDocks::~WindowDocks() = default;

void WindowDocks::add(QDockWidget& dock, Qt::DockWidgetArea area, const char* button,
                      Qt::Key shortcut) {
    window.addDockWidget(area, &dock);
    dock.hide();
    QAction* action = dock.toggleViewAction();
    action->setShortcut(shortcut);
    window.addAction(action);
    auto* tool = new QToolButton(&window);
    tool->setObjectName(QLatin1String(button));
    tool->setDefaultAction(action);
    window.statusBar()->addPermanentWidget(tool);
}
