// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

class Video;

/// What a person must be told of exports that went wrong. GUI thread only.
class ExportNotices : public QObject {
    Q_OBJECT

public:
    /// The one of the program.
    static ExportNotices& instance();

    /// Tells it at once, and keeps it for who shows it later. `video`: the job whose clip it was;
    /// null: none, or it is gone.
    void tell(const QString& notice, Video* video);

    /// The latest notice that has not been taken yet; empty if there is none.
    QString takeLatest();

Q_SIGNALS:
    void told(const QString& notice);
    void failed(Video* video); ///< an export from this job's recording; never null

private:
    QString latest;
};
