// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStyledItemDelegate>

/// Names the group of clips with which a clip was exported as one file; clips of no group have
/// none.
constexpr int joinedRole = Qt::UserRole;

/// Shows the items of the clip list no wider than their icons.
///
/// A word that is wider, such as a long file name without spaces, breaks anywhere. The items' text
/// stays as it is. Above items that are joined lies a bracket, which goes on from one to the next.
class CaptionDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
