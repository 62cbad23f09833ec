// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingmenu.h"

RecordingMenu::RecordingMenu(const JobStatus& status, bool isAlone, QWidget* parent)
    : QMenu(parent) {
    add("actionSearchAgain", tr("&Search again..."), SIGNAL(searchAgainAsked()))
        ->setEnabled(status.hasEnded() && status.hasClipFolder &&
                     status.file != FilePresence::Gone);
    add("actionCancelThis", tr("&Cancel this one"), SIGNAL(cancelAsked()))
        ->setEnabled(!status.hasEnded());
    addSeparator();
    add("actionShowInFolder", tr("Show in &folder"), SIGNAL(folderAsked()));
    add("actionCopyName", tr("Copy &name"), SIGNAL(nameAsked()));
    addSeparator();
    QAction* only = addAction(tr("&Only this recording"));
    only->setObjectName(QStringLiteral("actionOnlyThis"));
    only->setCheckable(true);
    only->setChecked(isAlone);
    connect(only, SIGNAL(triggered(bool)), SIGNAL(onlyThisAsked(bool)));
    add("actionRemoveClips", tr("&Remove its clips"), SIGNAL(removalAsked()))
        ->setEnabled(status.clips > 0);
}

QAction* RecordingMenu::add(const char* name, const QString& text, const char* signal) {
    QAction* action = addAction(text);
    action->setObjectName(QLatin1String(name));
    connect(action, SIGNAL(triggered()), signal);
    return action;
}
