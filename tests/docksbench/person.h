// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mainwindowdriver.h"

#include <QSet>

/// Does with a window what a person does, and prints how long the window was away from its events.
class Person {
public:
    explicit Person(MainWindowDriver& driver)
        : driver(driver) {}

    void showDocks();
    void handleClips();

    /// The table can be used whether it is seen or not.
    void handleRecordings();

    void showOnlyOne();

    /// With the docks shown.
    void tune();
    void drawArea();
    void loseRecordings(const QString& folder);

    void sortClips();
    void removeAll();

private:
    void useAndUndo(const char* what, QPushButton& use, int fewestExchanged);
    QList<Clip*> clips();
    int newBeside(const QSet<Clip*>& before); ///< clips that are listed

    MainWindowDriver& driver;
};
