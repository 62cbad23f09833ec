// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobtable.h"

#include "jobmodel.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>

namespace {

constexpr int shownRows = 6;
constexpr int shownLetters = 50;

/// Names of one camera differ at their ends.
class NameDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideMiddle;
    }
};

bool isKeyOfTheWindow(const QKeyEvent& event) {
    const bool isPlain = !(event.modifiers() & ~Qt::KeypadModifier);
    return isPlain && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter ||
                       event.key() == Qt::Key_Delete);
}

} // namespace

JobTable::JobTable(QWidget* parent)
    : QTableView(parent) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    setHorizontalScrollMode(ScrollPerPixel);
    setItemDelegateForColumn(JobModel::Name, new NameDelegate(this));
    setMinimumSize(0, 0);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    connect(horizontalHeader(), SIGNAL(sectionClicked(int)), SLOT(sortNext(int)));
}

void JobTable::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    setWidths();
}

void JobTable::sortBy(int column, Qt::SortOrder wanted) {
    sorted = column;
    order = wanted;
    horizontalHeader()->setSortIndicatorShown(column >= 0);
    horizontalHeader()->setSortIndicator(column, order);
    model()->sort(column, order);
    scrollTo(currentIndex());
}

bool JobTable::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        isKeyOfTheWindow(static_cast<QKeyEvent&>(*event)))
        event->accept();
    return QTableView::event(event);
}

void JobTable::keyPressEvent(QKeyEvent* event) {
    if (!isKeyOfTheWindow(*event))
        QTableView::keyPressEvent(event);
    else if (event->key() != Qt::Key_Delete && currentIndex().isValid())
        Q_EMIT entered();
}

void JobTable::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid())
        Q_EMIT entered();
}

/// The menu key asks for the current row, wherever the pointer is.
void JobTable::contextMenuEvent(QContextMenuEvent* event) {
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    Q_EMIT menuAsked(isKey ? viewport()->mapToGlobal(visualRect(index).center())
                           : event->globalPos());
}

void JobTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, whyEmpty());
}

QString JobTable::whyEmpty() const {
    const auto* filter = qobject_cast<const QSortFilterProxyModel*>(model());
    return filter && filter->sourceModel()->rowCount() > 0
               ? tr("The filter lets no recording through")
               : tr("No recordings were added yet");
}

QSize JobTable::sizeHint() const {
    const int rows = verticalHeader()->defaultSectionSize() * shownRows;
    return {fontMetrics().averageCharWidth() * shownLetters, rows};
}

void JobTable::sortNext(int column) {
    if (column != sorted)
        sortBy(column, Qt::AscendingOrder);
    else if (order == Qt::AscendingOrder)
        sortBy(column, Qt::DescendingOrder);
    else
        sortBy(-1, Qt::AscendingOrder);
}

void JobTable::setWidths() {
    const int letter = fontMetrics().averageCharWidth();
    const QList<int> letters = {20, 18, 7, 9, 10, 18};
    for (int column = 0; column < JobModel::ColumnCount; ++column)
        horizontalHeader()->resizeSection(column, letters[column] * letter);
}
