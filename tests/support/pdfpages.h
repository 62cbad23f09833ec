// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QVector>

/// One line of a page's text, or of a row of a table.
struct PdfLine {
    int y = 0;         ///< its baseline, in points from the foot of the paper
    int size = 0;      ///< its largest letters, in points
    QByteArray glyphs; ///< in their font's own numbers, from left to right
};

/// One page as it is printed.
struct PdfPage {
    QVector<PdfLine> lines; ///< from top to bottom, without the lowest one, the page's number
    QByteArray number;      ///< the glyphs of that
    int lowestPicture = 0;  ///< the foot of the lowest picture, as `y`; 0: there is none
};

/// The pages of a PDF that Qt has written; empty if it has none that can be read.
QVector<PdfPage> pdfPages(const QByteArray& pdf);
