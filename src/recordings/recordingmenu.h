// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobstatus.h"

#include <QMenu>

/// What can be done with one recording: its context menu.
class RecordingMenu : public QMenu {
    Q_OBJECT

public:
    /// `isAlone`: its clips alone are listed.
    RecordingMenu(const JobStatus& status, bool isAlone, QWidget* parent);

Q_SIGNALS:
    void searchAgainAsked();
    void cancelAsked();
    void folderAsked();
    void nameAsked(); ///< on the clipboard
    void onlyThisAsked(bool isAlone);
    void removalAsked(); ///< of its clips

private:
    QAction* add(const char* name, const QString& text, const char* signal);
};
