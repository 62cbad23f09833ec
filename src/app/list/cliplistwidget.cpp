// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cliplistwidget.h"

#include "clip.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

namespace {

constexpr int pausePerDuration = 20; // so that layouts take a twentieth of the time at the most
constexpr int longestPauseMilliseconds = 500;

bool isPlainArrow(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return !(event.modifiers() & ~Qt::KeypadModifier);
    default:
        return false;
    }
}

QList<Clip*> clipsOf(const QList<QListWidgetItem*>& items) {
    QList<Clip*> clips;
    for (QListWidgetItem* item : items)
        clips.append(static_cast<Clip*>(item));
    return clips;
}

} // namespace

QList<Clip*> ClipListWidget::clips() const {
    return clipsOf(findItems({}, Qt::MatchContains));
}

QList<Clip*> ClipListWidget::selectedClips() const {
    return clipsOf(selectedItems());
}

/// Deselected together: each change of the selection is told to many.
void ClipListWidget::removeSelected() {
    const QList<Clip*> clips = selectedClips();
    clearSelection();
    remove(clips);
}

void ClipListWidget::remove(const QList<Clip*>& clips) {
    Clip::leaveQueue(clips);
    for (Clip* clip : clips)
        setItemWidget(clip, nullptr);
    if (clips.size() == count())
        model()->removeRows(0, count()); // is told once, to many
    else
        qDeleteAll(clips);
}

void ClipListWidget::takeOut(const QList<Clip*>& clips) {
    for (Clip* clip : clips) {
        setItemWidget(clip, nullptr);
        takeItem(row(clip));
    }
}

void ClipListWidget::setOrder(const QList<Clip*>& clips) {
    selectionModel()->clear();
    isReordering = true;
    while (count() > 0)
        takeItem(count() - 1); // none behind it has to be moved
    for (Clip* clip : clips)
        addItem(clip);
    isReordering = false;
}

QRect ClipListWidget::visualRect(const QModelIndex& index) const {
    if (layoutTimer.isActive() && index.row() >= placed)
        const_cast<ClipListWidget*>(this)->doItemsLayout();
    return QListWidget::visualRect(index);
}

void ClipListWidget::doItemsLayout() {
    layoutTimer.stop();
    QElapsedTimer timer;
    timer.start();
    QListWidget::doItemsLayout();
    placed = count();
    layoutDuration = timer.elapsed();
}

bool ClipListWidget::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey =
        event->type() == QEvent::KeyRelease || event->type() == QEvent::ShortcutOverride;
    if (isKey && watched == window())
        recognizeHeldReturn(static_cast<QKeyEvent&>(*event));
    return QListWidget::eventFilter(watched, event);
}

void ClipListWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        keepSizes(0, count() - 1);
    QListWidget::changeEvent(event);
}

void ClipListWidget::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                 const QVector<int>& roles) {
    if (roles == QVector<int>{Qt::SizeHintRole})
        return; // ours
    const bool isMoved = keepSizes(topLeft.row(), bottomRight.row());
    if (bottomRight.row() >= placed)
        return; // will be looked at when it gets its place
    QListWidget::dataChanged(topLeft, bottomRight, roles);
    if (isMoved)
        layOutLater();
}

void ClipListWidget::focusInEvent(QFocusEvent* event) {
    const bool hadCurrent = currentIndex().isValid();
    QListWidget::focusInEvent(event);
    if (!hadCurrent)
        focus = currentIndex();
}

/// The item that the focus came to is the first that an arrow selects, not the one before it.
void ClipListWidget::keyPressEvent(QKeyEvent* event) {
    const bool isUnchosen = focus.isValid() && focus == currentIndex();
    if (isUnchosen && isPlainArrow(*event) && !selectionModel()->hasSelection())
        selectionModel()->select(focus, QItemSelectionModel::ClearAndSelect);
    else
        QListWidget::keyPressEvent(event);
    if (selectionModel()->hasSelection())
        focus = QModelIndex();
}

/// The base class takes the double-click of any button for one that opens.
void ClipListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QListWidget::mouseDoubleClickEvent(event);
}

void ClipListWidget::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (isAnyShown())
        return;
    const QString why = whyEmpty ? whyEmpty(count() > 0) : QString();
    if (why.isEmpty() && count() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                     why.isEmpty() ? tr("Drop recordings here, or add them with the buttons above")
                                   : why);
}

/// The base class forgets all places, and shows nothing until it has found them anew.
void ClipListWidget::rowsInserted(const QModelIndex& parent, int start, int end) {
    if (!isReordering)
        keepSizes(start, end);
    if (start < placed) {
        QListWidget::rowsInserted(parent, start, end);
        return;
    }
    QAbstractItemView::rowsInserted(parent, start, end); // NOLINT(bugprone-parent-virtual-call)
    layOutLater();
}

void ClipListWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == layoutTimer.timerId())
        doItemsLayout();
    else
        QListWidget::timerEvent(event);
}

bool ClipListWidget::isAnyShown() const {
    int row = 0;
    while (row < count() && isRowHidden(row))
        ++row;
    return row < count();
}

/// Whether an item among these rows has another size than before.
bool ClipListWidget::keepSizes(int first, int last) {
    QStyleOptionViewItem option = viewOptions();
    option.widget = this;
    option.locale = locale();
    option.features.setFlag(QStyleOptionViewItem::WrapText, wordWrap());
    bool isAnyOther = false;
    for (int row = first; row <= last; ++row) {
        const QSize before = item(row)->sizeHint();
        item(row)->setSizeHint({}); // the delegate would answer with it
        item(row)->setSizeHint(itemDelegate()->sizeHint(option, indexFromItem(item(row))));
        isAnyOther = isAnyOther || item(row)->sizeHint() != before;
    }
    return isAnyOther;
}

void ClipListWidget::layOutLater() {
    const qint64 pause = layoutDuration * pausePerDuration;
    if (!layoutTimer.isActive())
        layoutTimer.start(int(qMin<qint64>(pause, longestPauseMilliseconds)), this);
}

/// A window system may tell of a key that is held down as of one that is released and pressed again
/// at the same instant, which does not always reach us marked as a repetition. Return then goes to
/// the list, which has no use for it.
void ClipListWidget::recognizeHeldReturn(QKeyEvent& event) {
    if (event.key() != Qt::Key_Return)
        return;
    if (event.type() == QEvent::KeyRelease)
        returnReleased = event.timestamp();
    else if (event.timestamp() == returnReleased)
        event.accept();
}
