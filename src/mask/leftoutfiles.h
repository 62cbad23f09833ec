// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>

/// The files that job setup had on show when others took their place, in that order, each once.
class LeftOutFiles : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    const QStringList& all() const { return files; }
    void add(const QString& file);
    void remove(const QStringList& those);

    /// All of them; none is left here.
    QStringList take();

Q_SIGNALS:
    void changed();

private:
    QStringList files;
    QSet<QString> known; ///< the same: there can be thousands
};
