// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QBasicTimer>
#include <QListWidget>
#include <QPersistentModelIndex>

#include <functional>

class Clip;

/// The list of clips; its items are nothing else. While none is shown it says why, or what to do.
///
/// Stays quick and is never blank while clips arrive, however many it has: those that are there
/// stay where they are, and the new ones are given their places together, a little later where that
/// takes long. An item's size is asked of the delegate once, and kept as its size hint until the
/// item's text or picture changes.
class ClipListWidget : public QListWidget {
    Q_OBJECT

public:
    using QListWidget::QListWidget;

    QList<Clip*> clips() const;
    QList<Clip*> selectedClips() const;
    void removeSelected();
    void remove(const QList<Clip*>& clips);

    /// Whoever takes them out owns them.
    void takeOut(const QList<Clip*>& clips);

    /// Takes all clips out and puts them back in that order. Forgets what is selected, current and
    /// hidden.
    void setOrder(const QList<Clip*>& clips);

    /// Asked while no clip is shown, of which some may be hidden; empty: say what to do.
    using WhyEmpty = std::function<QString(bool isAnyHidden)>;
    void setWhyEmpty(const WhyEmpty& why) { whyEmpty = why; }

    /// Gives a new item its place first.
    QRect visualRect(const QModelIndex& index) const override;
    void doItemsLayout() override;

    /// For the window, whose Return opens clips.
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void changeEvent(QEvent* event) override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void timerEvent(QTimerEvent* event) override;

private:
    bool isAnyShown() const;
    bool keepSizes(int first, int last);
    void layOutLater();
    void recognizeHeldReturn(QKeyEvent& event);

    WhyEmpty whyEmpty;
    bool isReordering = false;   ///< items come back with their sizes
    QBasicTimer layoutTimer;     ///< active while items have no place, or not their own
    int placed = 0;              ///< items that have one: the first ones
    qint64 layoutDuration = 0;   ///< of the last layout, milliseconds
    ulong returnReleased = 0;    ///< when, in the window system's milliseconds
    QPersistentModelIndex focus; ///< current because the list got the focus, and not chosen yet
};
