// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

/// Answers the next modal dialog, which a call that follows will wait in.
///
/// `answer` gets the dialog once it is shown and must close it. `wasShown` tells whether one came.
template<class Dialog>
class DialogAnswer : public QObject {
public:
    explicit DialogAnswer(std::function<void(Dialog&)> answer)
        : answer(std::move(answer)) {
        QObject::connect(&timer, &QTimer::timeout, [this] { look(); });
        timer.start(10);
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
    }

    std::function<void(Dialog&)> answer;
    QTimer timer;
    bool isAnswered = false;
};
