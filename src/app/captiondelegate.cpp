// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "captiondelegate.h"

#include <QTextBoundaryFinder>

namespace {

constexpr QChar zeroWidthSpace(0x200B);

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
