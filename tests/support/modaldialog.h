// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

/// Answers the next modal dialog that appears, from within its own event loop.
///
/// Make one before the call that opens the dialog. `answer` looks at the dialog and closes it; a
/// dialog that it leaves open is rejected.
class ModalAnswer : public QObject {
public:
    explicit ModalAnswer(std::function<void(QDialog&)> answer)
        : answer(std::move(answer)) {
        connect(&timer, &QTimer::timeout, this, &ModalAnswer::look);
        timer.start(5);
    }

    /// How many dialogs have appeared.
    int count() const { return dialogs; }

private:
    void look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        ++dialogs;
        answer(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    }

    std::function<void(QDialog&)> answer;
    QTimer timer;
    int dialogs = 0;
};
