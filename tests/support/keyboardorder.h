// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>
#include <QStringList>
#include <QWidget>

/// The names of the window's widgets that Tab reaches, in its order, beginning at `first`.
inline QStringList tabOrder(QWidget& window, QWidget& first) {
    QStringList names;
    QWidget* widget = &first;
    do {
        if (widget->window() == &window && (widget->focusPolicy() & Qt::TabFocus) &&
            !widget->focusProxy() && !widget->objectName().startsWith("qt_"))
            names.append(widget->objectName());
        widget = widget->nextInFocusChain();
    } while (widget != &first);
    return names;
}

/// The name of the control that the label `name` belongs to; empty if there is none.
inline QString buddyOf(const QWidget& window, const QString& name) {
    const auto* label = window.findChild<QLabel*>(name);
    return label && label->buddy() ? label->buddy()->objectName() : QString();
}
