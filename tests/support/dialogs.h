// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

/// Answers the next modal dialog of a kind, from within its own event loop.
///
/// Make one before the call that opens the dialog. `answer` looks at the dialog once it is shown,
/// and closes it; one that it leaves open is rejected. A second dialog is left alone, and holds the
/// test up. `wasShown` tells whether one came.
template<class Dialog = QDialog>
class DialogAnswer : public QObject {
public:
    explicit DialogAnswer(std::function<void(Dialog&)> answer)
        : answer(std::move(answer)) {
        QObject::connect(&timer, &QTimer::timeout, [this] { look(); });
        timer.start(5);
    }

    bool wasShown() const { return isAnswered; }

private:
    void look() {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        timer.stop();
        isAnswered = true;
        answer(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    }

    std::function<void(Dialog&)> answer;
    QTimer timer;
    bool isAnswered = false;
};
