// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "windowdocks.h"

#include "areacontrol.h"
#include "cliplistwidget.h"
#include "clipmenu.h"
#include "detectionqueue.h"
#include "docklayout.h"
#include "emptylist.h"
#include "likeliestfirst.h"
#include "listfilter.h"
#include "markedbutton.h"
#include "measurementcache.h"
#include "motioncontrol.h"
#include "motiondock.h"
#include "playercontrol.h"
#include "playerdock.h"
#include "recordingscontrol.h"
#include "recordingsdock.h"
#include "reportcontrol.h"
#include "resumedsearches.h"
#include "searchnotice.h"
#include "settingstable.h"
#include "shownbar.h"
#include "video.h"

#include <QAction>
#include <QGridLayout>
#include <QMainWindow>
#include <QStatusBar>

WindowDocks::WindowDocks(QMainWindow& window, DetectionQueue& queue, ClipListWidget& list)
    : QObject(&window)
    , window(window)
    , queue(queue)
    , list(list)
    , filter(new ListFilter(list))
    , resumedSearches(new ResumedSearches(window, queue, list))
    , recordings(new RecordingsDock(queue, &window))
    , motion(new MotionDock(queue, &window))
    , motionControl(new MotionControl(*motion, list, queue, this))
    , player(new PlayerDock(&window))
    , playing(new PlayerControl(list, *player)) {
    filter->setParent(this);
    playing->setParent(this);
    resumedSearches->setParent(this);
    connect(recordings, SIGNAL(restAsked()), resumedSearches, SLOT(searchRest()));
    // Recordings and player stand above each other, and have need of the height.
    window.setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    add(*recordings, Qt::RightDockWidgetArea, "buttonRecordings", Qt::Key_F7);
    add(*motion, Qt::BottomDockWidgetArea, "buttonMotion", Qt::Key_F8);
    add(*player, Qt::RightDockWidgetArea, "buttonPlayer", Qt::Key_F9);
    area = std::make_unique<AreaControl>(*player, list, *filter, queue);
    clipMenu = std::make_unique<ClipMenu>(window, list, queue, *filter);
    clipMenu->setParent(this);
    connect(clipMenu.get(), SIGNAL(told(QString)), window.statusBar(), SLOT(showMessage(QString)));
    connect(clipMenu.get(), SIGNAL(onlyRecordingAsked(Video*)), recordings,
            SIGNAL(onlyThisAsked(Video*)));
    connect(clipMenu.get(), SIGNAL(playAsked(Clip*)), playing, SLOT(play(Clip*)));
    area->setParent(this);
    connect(recordings, SIGNAL(chosen(Video*)), area.get(), SLOT(setRecording(Video*)));
    window.statusBar()->connect(&MeasurementCache::instance(), SIGNAL(told(QString)),
                                SLOT(showMessage(QString)));
    wireRecordings();
    connectMotion();
    addShownBar();
    list.setWhyEmpty([this](bool isAnyHidden) {
        return isAnyDockShown() ? emptyListText(this->queue, isAnyHidden) : QString();
    });
    layout = std::make_unique<DockLayout>(window);
    layout->restore();
}

/// The docks would outlive what they show. Joined clips leave the export queue before clips are
/// deleted, which starts the next one in it.
WindowDocks::~WindowDocks() {
    clipMenu.reset();
    layout.reset();
    recordingsControl.reset();
    reportControl.reset();
    list.setWhyEmpty({});
    delete recordings;
    delete motionControl;
    delete motion;
}

void WindowDocks::showAllClips() {
    if (filter->isActive())
        filter->clear();
}

void WindowDocks::accept(Video* job) {
    connect(job, SIGNAL(newClip(int, QImage, double, double, double)), &window,
            SLOT(newClip(int, QImage, double, double, double)));
    queue.add({job});
}

/// The recordings stand otherwise than before.
void WindowDocks::showSummary(const QString& summary) {
    recordings->toggleViewAction()->setIconText(summary);
    list.viewport()->update();
}

void WindowDocks::focusShown(bool isShown) {
    const auto* action = qobject_cast<QAction*>(sender());
    auto* dock = action ? qobject_cast<QDockWidget*>(action->parent()) : nullptr;
    if (isShown && dock && dock->widget()) {
        dock->raise();
        dock->widget()->setFocus();
    } else if (!isShown) {
        list.setFocus();
    }
}

void WindowDocks::showTime(double seconds) {
    if (const Video* job = motion->shownJob())
        playing->showTime(*job, seconds);
}

void WindowDocks::connectMotion() {
    connect(motion, SIGNAL(timeChosen(double)), SLOT(showTime(double)));
    connect(recordings, SIGNAL(chosen(Video*)), motion, SLOT(showJob(Video*)));
    connect(motionControl, SIGNAL(listChanged()), SLOT(applyFilter()));
    connect(&motionControl->replacement(), SIGNAL(told(QString)), window.statusBar(),
            SLOT(showMessage(QString)));
}

/// What comes back to the list is shown at first.
void WindowDocks::applyFilter() {
    if (filter->isActive())
        filter->apply();
}

void WindowDocks::add(QDockWidget& dock, Qt::DockWidgetArea area, const char* button,
                      Qt::Key shortcut) {
    window.addDockWidget(area, &dock);
    dock.hide();
    QAction* action = dock.toggleViewAction();
    action->setShortcut(shortcut);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(
        dock.windowTitle(), action->shortcut().toString(QKeySequence::NativeText)));
    window.addAction(action);
    connect(action, SIGNAL(triggered(bool)), SLOT(focusShown(bool)));
    auto* tool = new MarkedButton(&window);
    tool->setObjectName(QLatin1String(button));
    tool->setDefaultAction(action);
    window.statusBar()->addPermanentWidget(tool);
}

bool WindowDocks::isAnyDockShown() const {
    return !recordings->isHidden() || !motion->isHidden() || !player->isHidden();
}

void WindowDocks::addShownBar() {
    auto* grid = qobject_cast<QGridLayout*>(window.centralWidget()->layout());
    grid->addWidget(new ShownBar(*filter, list), grid->rowCount(), 0);
}

void WindowDocks::wireRecordings() {
    recordingsControl =
        std::make_unique<RecordingsControl>(window, queue, list, *filter, *recordings);
    reportControl = std::make_unique<ReportControl>(window, queue, list);
    searchNotice = std::make_unique<SearchNotice>(queue);
    likeliest = std::make_unique<LikeliestFirst>(queue);
    likeliest->setOn(settings::likeliestFirst.read(QSettings()));
    connect(recordings, SIGNAL(likeliestFirstAsked(bool)), likeliest.get(), SLOT(setOn(bool)));
    connect(recordings, SIGNAL(searchAsked(Video*)), SLOT(accept(Video*)));
    connect(recordings, SIGNAL(reportAsked()), reportControl.get(), SLOT(save()));
    connect(recordings, SIGNAL(summaryChanged(QString)), SLOT(showSummary(QString)));
}
