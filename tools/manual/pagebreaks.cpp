// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pagebreaks.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>

namespace {

/// What is not to be torn: a paragraph, an item of a list or a picture, or else a table.
struct Piece {
    QTextBlock block;
    QTextFrame* table = nullptr;
};

QVector<Piece> piecesOf(const QTextDocument& document) {
    QVector<Piece> pieces;
    for (auto i = document.rootFrame()->begin(); !i.atEnd(); ++i)
        pieces.append({i.currentBlock(), i.currentFrame()});
    return pieces;
}

/// The first line of a block, or the last one. Where it does not fit it is moved, while its block
/// begins where it would have been.
QRectF lineRect(const QTextDocument& document, const QTextBlock& block, bool isLast) {
    const QPointF position = document.documentLayout()->blockBoundingRect(block).topLeft();
    const QTextLayout& layout = *block.layout();
    return layout.lineAt(isLast ? layout.lineCount() - 1 : 0).rect().translated(position);
}

int pageAt(const QTextDocument& document, qreal y) {
    return int(y / document.pageSize().height());
}

int firstPage(const QTextDocument& document, const Piece& piece) {
    const QRectF begin = piece.table ? document.documentLayout()->frameBoundingRect(piece.table)
                                     : lineRect(document, piece.block, false);
    return pageAt(document, begin.top());
}

int lastPage(const QTextDocument& document, const Piece& piece) {
    const QRectF end = piece.table ? document.documentLayout()->frameBoundingRect(piece.table)
                                   : lineRect(document, piece.block, true);
    return pageAt(document, end.bottom() - 1.0);
}

/// The lines of an example are blocks of their own.
bool leadsOn(const Piece& piece, const Piece& next) {
    const QTextBlockFormat format = piece.block.blockFormat();
    return !piece.table &&
           (format.headingLevel() > 0 || piece.block.text().endsWith(':') ||
            (format.nonBreakableLines() && next.block.blockFormat().nonBreakableLines()));
}

void breakBefore(const Piece& piece) {
    if (piece.table) {
        QTextFrameFormat format = piece.table->frameFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        piece.table->setFrameFormat(format);
        return;
    }
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(piece.block).mergeBlockFormat(format);
}

} // namespace

void keepTogether(QTextDocument& document) {
    const QVector<Piece> pieces = piecesOf(document);
    int first = 0; // of those that belong together
    for (int i = 0; i < pieces.size(); ++i) {
        if (firstPage(document, pieces[first]) != lastPage(document, pieces[i]))
            breakBefore(pieces[first]);
        if (!leadsOn(pieces[i], pieces.value(i + 1)))
            first = i + 1;
    }
}

QVector<int> headingPages(const QTextDocument& document, int level) {
    QVector<int> pages;
    for (const Piece& piece : piecesOf(document)) {
        if (!piece.table && piece.block.blockFormat().headingLevel() == level)
            pages.append(firstPage(document, piece) + 1);
    }
    return pages;
}
