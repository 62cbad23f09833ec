// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "newestwork.h"
#include "recordingstart.h"

#include <QToolButton>

class QBoxLayout;
class QDateTimeEdit;

/// The button that offers when the recording on show began, as its name, its head or its file's
/// time tells it, for the field where a person sets that. Hidden where it is not known, and until
/// it is: what has to be read is read beside the event loop.
class StartOffer : public QToolButton {
    Q_OBJECT

public:
    /// Stands behind `edit` in its `layout`.
    StartOffer(QDateTimeEdit& edit, QBoxLayout& layout);

    /// Looks for the start of the recording at `path`; what was offered before is gone.
    void lookAt(const QString& path);

    /// No recording is on show.
    void forget();

    /// Where room is short, whence the time is known gives way first, in the parentheses, and then
    /// the end: the tool tip has all of it.
    QString shownText() const;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private Q_SLOTS:
    void use();

private:
    void offer(const RecordingStart& start);
    QString shownTime(const RecordingStart& start) const;
    int frameWidth() const;

    QDateTimeEdit& edit;
    RecordingStart offered;
    NewestWork work;
};
