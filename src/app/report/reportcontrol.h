// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backgroundthread.h"

#include <QObject>

class ClipListWidget;
class DetectionQueue;
class QMainWindow;

/// Saves a page of what the window lists, in a folder that a person names, beside all other work.
class ReportControl : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    ReportControl(QMainWindow& window, DetectionQueue& queue, ClipListWidget& list);

public Q_SLOTS:
    void save();

private:
    bool mayReplace(const QString& page) const;
    void write(const QString& folder);
    void tellEnd(const QString& folder, const QString& failure);

    QMainWindow& window;
    DetectionQueue& queue;
    ClipListWidget& list;
    BackgroundThread thread;
};
