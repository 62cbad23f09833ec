// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backgroundthread.h"
#include "cliplist.h"

#include <QObject>
#include <QString>

class Clip;
class QWidget;

/// Writes clips as lists for other programs, with the bytes of the scanner.
class ClipListExport : public QObject {
    Q_OBJECT

public:
    /// Asks for a file and writes the clips into it, in their order, beside the event loop. Clips
    /// that cannot be cut out are left out.
    void ask(QWidget* parent, ClipList list, const QList<Clip*>& clips);

Q_SIGNALS:
    /// What has become of it, for a person.
    void told(const QString& notice);

private:
    BackgroundThread thread;
};
