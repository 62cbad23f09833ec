// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipmenu.h"

#include "clip.h"
#include "cliplistwidget.h"
#include "detectionqueue.h"
#include "listfilter.h"
#include "showinfolder.h"
#include "video.h"

#include <QAction>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMainWindow>

#include <algorithm>

namespace {

/// The file of a clip: the exported one if there is one, else its recording.
QString fileOf(const Clip& clip) {
    if (clip.status == Clip::Exported)
        return clip.outputPath;
    return clip.video ? clip.video->fileName : QString();
}

} // namespace

ClipMenu::ClipMenu(QMainWindow& window, ClipListWidget& list, DetectionQueue& queue,
                   ListFilter& filter)
    : window(window)
    , list(list)
    , queue(queue)
    , filter(filter)
    , joined(queue)
    , strengths(queue, list) {
    menu.setObjectName(QStringLiteral("menuClips"));
    forSelection.append(add(menu, "actionPlay", tr("Play"), SLOT(play())));
    for (const char* name :
         {"actionOpen_selected", "actionExport_selected", "actionRemoveSelected"})
        menu.addAction(window.findChild<QAction*>(QLatin1String(name)));
    menu.addSeparator();
    forSelection.append(add(menu, "actionShowInFolder", tr("Show in folder"), SLOT(showFile())));
    forSelection.append(add(menu, "actionCopyName", tr("Copy file name"), SLOT(copyName())));
    forSelection.append(add(menu, "actionOnlyThisRecording", tr("Only this recording"),
                            SLOT(showRecordingAlone())));
    menu.addSeparator();
    forSelection.append(add(menu, "actionExportJoined", tr("Export joined"), SLOT(exportJoined())));
    addListMenu();
    addOrderMenu();
    list.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&list, SIGNAL(customContextMenuRequested(QPoint)), SLOT(show(QPoint)));
    connect(&lists, SIGNAL(told(QString)), SIGNAL(told(QString)));
}

/// `position` is in the list's viewport; that of a key can lie outside what is seen.
void ClipMenu::show(const QPoint& position) {
    const bool isSelected = list.selectionModel()->hasSelection();
    for (QAction* action : qAsConst(forSelection))
        action->setEnabled(isSelected);
    const QRect seen = list.viewport()->rect();
    const QPoint inside(std::clamp(position.x(), seen.left(), seen.right()),
                        std::clamp(position.y(), seen.top(), seen.bottom()));
    menu.popup(list.viewport()->mapToGlobal(inside));
}

void ClipMenu::play() {
    Clip* clip = chosen();
    if (clip && isUsable(clip->video))
        Q_EMIT playAsked(clip);
}

void ClipMenu::showFile() {
    if (const Clip* clip = chosen())
        showInFolder(fileOf(*clip));
}

void ClipMenu::copyName() {
    QStringList names;
    for (const Clip* clip : list.selectedClips())
        names.append(fileOf(*clip));
    names.removeDuplicates();
    QGuiApplication::clipboard()->setText(names.join(QLatin1Char('\n')));
}

void ClipMenu::showRecordingAlone() {
    const Clip* clip = chosen();
    if (clip && clip->video)
        Q_EMIT onlyRecordingAsked(clip->video);
}

void ClipMenu::exportJoined() {
    QList<Clip*> clips;
    for (Clip* clip : list.selectedClips()) {
        if (isUsable(clip->video))
            clips.append(clip);
    }
    const QString refusal = joined.exportJoined(clips);
    if (!refusal.isEmpty())
        Q_EMIT told(refusal);
}

void ClipMenu::exportList() {
    const auto* action = qobject_cast<QAction*>(sender());
    if (action)
        lists.ask(&window, ClipList(action->data().toInt()), listed());
}

void ClipMenu::sort() {
    const auto* action = qobject_cast<QAction*>(sender());
    if (!action)
        return;
    reorder(list, ordered(list.clips(), ClipOrder(action->data().toInt()), queue.jobs()));
    filter.apply();
}

QAction* ClipMenu::add(QMenu& to, const char* name, const QString& text, const char* slot) {
    QAction* action = to.addAction(text, this, slot);
    action->setObjectName(QLatin1String(name));
    return action;
}

void ClipMenu::addListMenu() {
    QMenu& formats = *menu.addMenu(tr("Export list as"));
    formats.setObjectName(QStringLiteral("menuExportList"));
    const auto addFormat = [&](const char* name, const QString& text, ClipList format) {
        add(formats, name, text, SLOT(exportList()))->setData(int(format));
    };
    addFormat("actionListM3u", tr("Playlist for VLC (M3U)"), ClipList::M3u);
    addFormat("actionListMpv", tr("Edit list for mpv"), ClipList::Mpv);
    addFormat("actionListEdl", tr("Edit decision list (CMX 3600)"), ClipList::Edl);
    addFormat("actionListMlt", tr("Project for video editors (MLT)"), ClipList::Mlt);
    addFormat("actionListCuts", tr("Cut list"), ClipList::Cuts);
}

void ClipMenu::addOrderMenu() {
    QMenu& orders = *menu.addMenu(tr("Sort by"));
    orders.setObjectName(QStringLiteral("menuSort"));
    const auto addOrder = [&](const char* name, const QString& text, ClipOrder order) {
        add(orders, name, text, SLOT(sort()))->setData(int(order));
    };
    addOrder("actionSortFound", tr("Order found"), ClipOrder::Found);
    addOrder("actionSortStrength", tr("Strength"), ClipOrder::Strength);
    addOrder("actionSortLength", tr("Length"), ClipOrder::Length);
    addOrder("actionSortTimeOfDay", tr("Time of day"), ClipOrder::TimeOfDay);
}

/// The clip that is meant where one alone can be.
Clip* ClipMenu::chosen() const {
    auto* current = static_cast<Clip*>(list.currentItem());
    if (current && current->isSelected())
        return current;
    return list.selectedClips().value(0);
}

/// Those that are selected in the order in which they stand, or all that are shown.
QList<Clip*> ClipMenu::listed() const {
    const bool isSelected = list.selectionModel()->hasSelection();
    QList<Clip*> clips;
    for (Clip* clip : list.clips()) {
        if (isSelected ? clip->isSelected() : !clip->isHidden())
            clips.append(clip);
    }
    return clips;
}

/// Whether its recording is there, and not less than it was; if not, tells it. One that was
/// appended to since is as it was as far as its clips go.
bool ClipMenu::isUsable(const Video* video) {
    if (!video)
        return false;
    const QFileInfo file(video->fileName);
    if (file.exists() && file.size() >= video->fileSize)
        return true;
    Q_EMIT told(file.exists() ? tr("%1 has changed since it was added").arg(video->shortFileName())
                              : tr("%1 is no longer there").arg(video->shortFileName()));
    return false;
}
