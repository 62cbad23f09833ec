// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "restlessdrawing.h"

#include "htmltext.h"

#include <algorithm>

namespace {

constexpr int longestSide = 96; ///< pixels

QByteArray digits(int number) {
    return QByteArray::number(number);
}

/// One path of a row's runs, each as high as a cell.
QByteArray cellsPath(const CellBits& cells) {
    QByteArray path;
    for (int row = 0; row < cells.grid.rows; ++row) {
        for (int column = 0; column < cells.grid.columns; ++column) {
            const int begin = column;
            while (column < cells.grid.columns && cells.has(column, row))
                ++column;
            if (column > begin)
                path += 'M' + digits(begin) + ' ' + digits(row) + 'H' + digits(column) + "v1H" +
                        digits(begin) + 'Z';
        }
    }
    return path;
}

} // namespace

QByteArray restlessDrawing(const ReportedRestless& restless) {
    if (restless.text.isEmpty())
        return {};
    QByteArray text = "<p class=\"facts\">" + htmlText(restless.text) + "</p>\n";
    const CellGrid grid = restless.cells.grid;
    if (restless.cells.count() == 0)
        return text;
    const QSize size = QSize(grid.columns, grid.rows)
                           .scaled(longestSide, longestSide, Qt::KeepAspectRatio)
                           .expandedTo({1, 1});
    return text +
           "<svg class=\"restless\" role=\"img\" aria-label=\"Where it is left out\" width=\"" +
           digits(size.width()) + "\" height=\"" + digits(size.height()) + "\" viewBox=\"0 0 " +
           digits(grid.columns) + ' ' + digits(grid.rows) +
           "\" preserveAspectRatio=\"none\"><path d=\"" + cellsPath(restless.cells) +
           "\"/></svg>\n";
}
