// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "captiondelegate.h"

#include <QPainter>
#include <QTextBoundaryFinder>

namespace {

constexpr QChar zeroWidthSpace(0x200B);
constexpr int bracketPixels = 3; // its line
constexpr int bracketHeight = 12;

bool isJoined(const QModelIndex& left, const QModelIndex& right) {
    const QVariant group = left.data(joinedRole);
    return group.isValid() && group == right.data(joinedRole);
}

/// Its ends point down where the next item belongs to another group.
void paintBracket(QPainter& painter, const QRect& place, bool hasBegin, bool hasEnd,
                  const QColor& color) {
    painter.fillRect(QRect(place.left(), place.top(), place.width(), bracketPixels), color);
    if (hasBegin)
        painter.fillRect(QRect(place.left(), place.top(), bracketPixels, bracketHeight), color);
    if (hasEnd)
        painter.fillRect(
            QRect(place.right() + 1 - bracketPixels, place.top(), bracketPixels, bracketHeight),
            color);
}

/// `word` with a place to break after every character as a person sees them.
QString breakable(const QString& word) {
    QString broken;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word);
    int begin = 0;
    for (int end = finder.toNextBoundary(); end > begin; end = finder.toNextBoundary()) {
        broken += word.midRef(begin, end - begin) + zeroWidthSpace;
        begin = end;
    }
    return broken;
}

/// One line of a caption, none of whose words needs more than `width` pixels.
QString fitting(const QString& line, const QFontMetrics& metrics, int width) {
    QStringList words = line.split(QLatin1Char(' '));
    for (QString& word : words) {
        if (metrics.horizontalAdvance(word) > width)
            word = breakable(word);
    }
    return words.join(QLatin1Char(' '));
}

} // namespace

void CaptionDelegate::initStyleOption(QStyleOptionViewItem* option,
                                      const QModelIndex& index) const {
    const int width = option->decorationSize.width(); // of all icons; theirs may be less below
    QStyledItemDelegate::initStyleOption(option, index);
    QStringList lines = option->text.split(QChar::LineSeparator); // as the base class writes them
    for (QString& line : lines)
        line = fitting(line, option->fontMetrics, width);
    option->text = lines.join(QChar::LineSeparator);
}

void CaptionDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (!index.data(joinedRole).isValid())
        return;
    const QModelIndex before = index.siblingAtRow(index.row() - 1);
    const QModelIndex behind = index.siblingAtRow(index.row() + 1);
    paintBracket(*painter, option.rect, !isJoined(index, before), !isJoined(index, behind),
                 option.palette.color(QPalette::Active, QPalette::Highlight));
}
